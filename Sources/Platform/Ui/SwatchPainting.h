// How a colour looks wherever one is shown to be taken.
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace platform {

/// A smooth shape of the colour, over the transparency checker where it is not opaque. `edge` is a
/// line inside it.
void paintSwatch(QPainter& painter, const QRectF& rect, double radius, const QColor& color,
    const QColor& edge, double edgeWidth);

/// The same with the quiet edge of a swatch at rest.
void paintSwatch(QPainter& painter, const QRectF& rect, double radius, const QColor& color);

} // namespace platform
