#include "PanelPlacement.h"

#include <algorithm>

namespace platform {

namespace {

/// `length` centred on `middle`, moved into low…high.
int centred(int middle, int length, int low, int high)
{
    return std::clamp(middle - length / 2, low, std::max(low, high - length));
}

} // namespace

PanelPlacement placePanel(
    const QRect& anchor, QSize size, int gap, const QRect& screen, const QRect& available)
{
    const QRect room = available.marginsRemoved({ gap, gap, gap, gap });
    const QPoint item(anchor.x() + anchor.width() / 2, anchor.y() + anchor.height() / 2);
    PanelPlacement placement;
    placement.frame.setSize(size.boundedTo(room.size()));
    auto& frame = placement.frame;

    const bool aboveOrBelow = item.y() < available.top() || item.y() > available.bottom();
    const bool besideOnly
        = !aboveOrBelow && (item.x() < available.left() || item.x() > available.right());
    if (besideOnly) {
        const bool barIsLeft = item.x() < available.left();
        placement.direction = { barIsLeft ? 1 : -1, 0 };
        const int x = barIsLeft ? room.left() : room.right() + 1 - frame.width();
        frame.moveTopLeft({ x, centred(item.y(), frame.height(), room.top(), room.bottom() + 1) });
        return placement;
    }
    const bool barIsAbove = item.y() < screen.center().y();
    placement.direction = { 0, barIsAbove ? 1 : -1 };
    // A bar that reserves no room is passed by the item's own height.
    const int below = std::max(room.top(), anchor.bottom() + 1 + gap);
    const int above = std::min(room.bottom() + 1, anchor.top() - gap);
    const int wanted = barIsAbove ? below : above - frame.height();
    const int y
        = std::clamp(wanted, room.top(), std::max(room.top(), room.bottom() + 1 - frame.height()));
    frame.moveTopLeft({ centred(item.x(), frame.width(), room.left(), room.right() + 1), y });
    return placement;
}

} // namespace platform
