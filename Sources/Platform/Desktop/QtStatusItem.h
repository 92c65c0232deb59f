// The status item on a Qt desktop: over the bus where a tray host listens, embedded on X11 else.
#pragma once

#include "StatusItem.h"

#include <functional>
#include <memory>

class QColor;
class QPixmap;

namespace platform {

/// Paints the item's one-colour icon in a square of `size` pixels.
using StatusIconPainter = std::function<QPixmap(int size, const QColor& ink)>;

/// Puts the item into the tray, now or as soon as there is one; its events start with the next turn
/// of the event loop.
[[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem(
    StatusItem::Content content, StatusItem::Events events, StatusIconPainter paintIcon);

} // namespace platform
