// Dragging a colour into another program.
#pragma once

#include <QColor>

namespace platform {

/// Lets the user drop `color` somewhere; a swatch of it hangs centred under the pointer, sharp at
/// `pixelRatio`. Called while the mouse button is down, inside the handler of a move. Runs the
/// event loop and returns when the drag has ended: whatever the caller stands on may be gone by
/// then.
void runColorDrag(const QColor& color, double pixelRatio);

/// True while `runColorDrag` runs; windows that hide when they lose focus stay.
[[nodiscard]] bool isColorDragRunning();

} // namespace platform
