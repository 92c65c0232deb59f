#include "SwatchPainting.h"

#include "Shapes.h"
#include "ThemeSource.h"

#include <QPainter>
#include <QPixmap>

namespace platform {

namespace {

/// The checker as a brush: a clip would leave the rounded corners without smooth edges.
QBrush checkerBrush(const QRectF& rect, double pixelRatio)
{
    const auto& theme = currentTheme();
    QPixmap pixmap((rect.size() * pixelRatio).toSize().expandedTo({ 1, 1 }));
    pixmap.setDevicePixelRatio(pixelRatio);
    QPainter painter(&pixmap);
    paintChecker(painter, { {}, rect.size() }, theme.fieldBackground,
        composited(theme.separator, theme.fieldBackground));
    painter.end();
    QBrush brush(pixmap);
    brush.setTransform(QTransform::fromTranslate(rect.x(), rect.y()));
    return brush;
}

} // namespace

void paintSwatch(QPainter& painter, const QRectF& rect, double radius, const QColor& color,
    const QColor& edge, double edgeWidth)
{
    painter.setRenderHint(QPainter::Antialiasing);
    if (color.alpha() < 255)
        painter.fillPath(smoothRoundedRect(rect, radius),
            checkerBrush(rect, painter.device()->devicePixelRatioF()));
    paintPlate(painter, rect, radius, color, edge, edgeWidth);
}

void paintSwatch(QPainter& painter, const QRectF& rect, double radius, const QColor& color)
{
    constexpr double edgeWidth = 0.75;
    paintSwatch(painter, rect, radius, color, currentTheme().swatchEdge, edgeWidth);
}

} // namespace platform
