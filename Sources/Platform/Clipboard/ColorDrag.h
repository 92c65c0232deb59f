// Dragging a colour into another program.
#pragma once

#include "Pasteboard.h"

#include <QPixmap>

namespace platform {

/// Lets the user drop `content` somewhere; `picture` hangs centred under the pointer. Called while
/// the mouse button is down, inside the handler of a move. Runs the event loop and returns when the
/// drag has ended: whatever the caller stands on may be gone by then.
void runColorDrag(const ColorContent& content, const QPixmap& picture);

/// True while `runColorDrag` runs; windows that hide when they lose focus stay.
[[nodiscard]] bool isColorDragRunning();

} // namespace platform
