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
constexpr int shadowDrop = 16;
/// Half the blur of 40.
constexpr double shadowSigma = 20;
constexpr double shadowAlpha = 0.32;
/// Where the shadow can no longer be seen.
constexpr int shadowReach = 52;

} // namespace

PanelFrame::PanelFrame(bool composited)
    : composited_(composited)
    , shadow_(radius, shadowSigma)
{
}

QMargins PanelFrame::shadowRoom(QPoint direction) const
{
    if (!composited_)
        return {};
    QMargins room(shadowReach, shadowReach - shadowDrop, shadowReach, shadowReach + shadowDrop);
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
    shadow_.paint(painter, panel.translated(0, shadowDrop), faded(Qt::black, shadowAlpha));
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
