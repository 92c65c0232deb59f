// Where a panel stands beside its status item.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace platform {

/// A panel's place on the screen, in logical coordinates.
struct PanelPlacement {
    QRect frame;
    /// One unit from the bar towards the panel: the way in which it opens.
    QPoint direction;

    bool operator==(const PanelPlacement&) const = default;
};

/// Places a panel of `size` beside `anchor`, the item or a point on it: below a bar at the top,
/// above one at the bottom, next to one at a side, `gap` away and centred on the item as far as it
/// stays inside `available`, the part of `screen` that no bar covers. A panel that is larger than
/// that is cut to it.
[[nodiscard]] PanelPlacement placePanel(
    const QRect& anchor, QSize size, int gap, const QRect& screen, const QRect& available);

} // namespace platform
