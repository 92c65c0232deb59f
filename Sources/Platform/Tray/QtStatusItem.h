// The status item on a Qt desktop: over the bus where a tray host listens, embedded on X11 else.
#pragma once

#include "StatusIcon.h"
#include "StatusItem.h"

#include <memory>

namespace platform {

/// Puts the item into the tray, now or as soon as there is one; its events start with the next turn
/// of the event loop.
[[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem(
    StatusItem::Content content, StatusItem::Events events, StatusIconPainter paintIcon);

} // namespace platform
