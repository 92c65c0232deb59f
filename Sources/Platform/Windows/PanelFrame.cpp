#include "PanelFrame.h"

#include "Shapes.h"
#include "ThemeSource.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace platform {

namespace {

constexpr double radius = 12;
constexpr double outlineWidth = 0.75;
constexpr double shadowDrop = 16;
/// Half the blur of 40.
constexpr double shadowSigma = 20;
constexpr double shadowAlpha = 0.32;
/// Where the shadow has faded away.
constexpr int shadowReach = 52;
/// A blur this wide loses nothing at a quarter of the size.
constexpr int shadowShrink = 4;

/// The share of a Gaussian's weight below `x`.
double coverage(double x)
{
    return 0.5 * std::erfc(-x / (shadowSigma * std::sqrt(2.0)));
}

} // namespace

QMargins PanelFrame::shadowRoom(QPoint direction) const
{
    if (!composited_)
        return {};
    const auto drop = static_cast<int>(shadowDrop);
    QMargins room(shadowReach, shadowReach - drop, shadowReach, shadowReach + drop);
    if (direction.y() > 0)
        room.setTop(gap());
    if (direction.y() < 0)
        room.setBottom(gap());
    if (direction.x() > 0)
        room.setLeft(gap());
    if (direction.x() < 0)
        room.setRight(gap());
    return room;
}

QSize PanelFrame::cornerSize() const
{
    const int side = static_cast<int>(std::ceil(1.25 * radius));
    return composited_ ? QSize(side, side) : QSize();
}

void PanelFrame::paintAround(QPainter& painter, const QRect& panel) const
{
    if (!composited_) {
        const auto& theme = currentTheme();
        painter.fillRect(panel, platform::composited(theme.separator, theme.windowBackground));
        return;
    }
    paintShadow(painter, panel);
    paintOutline(painter, panel);
}

void PanelFrame::paintCorner(QPainter& painter, const QRect& corner, const QRect& panel) const
{
    QPainterPath outside;
    outside.addRect(corner);
    outside -= smoothRoundedRect(panel, radius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(outside, Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    paintShadow(painter, panel);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setClipPath(outside);
    paintOutline(painter, panel);
}

void PanelFrame::paintShadow(QPainter& painter, const QRect& panel) const
{
    const QRect reach = panel.adjusted(-shadowReach, -shadowReach, shadowReach, shadowReach);
    const QSize size = reach.size() / shadowShrink;
    if (shadow_.size() != size) {
        shadow_ = QImage(size, QImage::Format_ARGB32_Premultiplied);
        // A blurred rectangle is the product of two blurred edges a direction; at this width the
        // round corners no longer show.
        const auto across = [](int index, int length) {
            const double at = (index + 0.5) * shadowShrink - shadowReach;
            return coverage(at) - coverage(at - length);
        };
        for (int y = 0; y < size.height(); ++y) {
            auto* line = reinterpret_cast<QRgb*>(shadow_.scanLine(y));
            const double down = across(y, panel.height());
            for (int x = 0; x < size.width(); ++x) {
                const double alpha = 255 * shadowAlpha * down * across(x, panel.width());
                line[x] = qRgba(0, 0, 0, static_cast<int>(std::lround(alpha)));
            }
        }
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(reach.translated(0, static_cast<int>(shadowDrop))), shadow_);
}

void PanelFrame::paintOutline(QPainter& painter, const QRect& panel) const
{
    const double half = outlineWidth / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(currentTheme().menuOutline, outlineWidth));
    painter.drawPath(
        smoothRoundedRect(QRectF(panel).adjusted(-half, -half, half, half), radius + half));
}

} // namespace platform
