#include "Shapes.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr double cornerReach = 1.25;

// Half a corner of side 1 as one cubic, from the end of a straight edge to the diagonal; the other
// half mirrors it. Numbers fitted to |x|^2.6 + |y|^2.6 = 1, deviation below 0.00015.
constexpr double edgeHandle = 0.19;
constexpr double diagonalReach = 0.766011;
constexpr double diagonalHandle = 0.235;

/// A corner of side `size`. `inner` is the centre of its superellipse; `from` and `to` are the unit
/// vectors towards the two edges, in drawing order.
void addCorner(QPainterPath& path, QPointF inner, QPointF from, QPointF to, double size)
{
    const auto at
        = [&](double along, double across) { return inner + (from * along + to * across) * size; };
    path.lineTo(at(1, 0));
    path.cubicTo(at(1, edgeHandle),
        at(diagonalReach + diagonalHandle, diagonalReach - diagonalHandle),
        at(diagonalReach, diagonalReach));
    path.cubicTo(at(diagonalReach - diagonalHandle, diagonalReach + diagonalHandle),
        at(edgeHandle, 1), at(0, 1));
}

/// A line of a point or more is made of whole device pixels; a finer one stays as it is.
double sharpWidth(const QPainter& painter, double width)
{
    const auto scale = painter.deviceTransform().m11();
    if (width < 1 || scale <= 0)
        return width;
    return std::max(1.0, std::round(width * scale - 0.01)) / scale;
}

} // namespace

QPainterPath smoothRoundedRect(const QRectF& rect, double radius)
{
    QPainterPath path;
    const auto size = std::min(radius * cornerReach, std::min(rect.width(), rect.height()) / 2);
    if (size <= 0) {
        path.addRect(rect);
        return path;
    }
    const QPointF left(-1, 0);
    const QPointF up(0, -1);
    const QPointF right(1, 0);
    const QPointF down(0, 1);
    path.moveTo(rect.left() + size, rect.top());
    addCorner(path, { rect.right() - size, rect.top() + size }, up, right, size);
    addCorner(path, { rect.right() - size, rect.bottom() - size }, right, down, size);
    addCorner(path, { rect.left() + size, rect.bottom() - size }, down, left, size);
    addCorner(path, { rect.left() + size, rect.top() + size }, left, up, size);
    path.closeSubpath();
    return path;
}

QPainterPath capsule(const QRectF& rect)
{
    QPainterPath path;
    const auto radius = std::min(rect.width(), rect.height()) / 2;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

void paintPlate(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
    const QColor& edge, double edgeWidth)
{
    const auto wasAntialiased = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing);
    // An outline alone goes around a plate that is aligned already.
    const auto plate = fill.alpha() > 0 ? alignedToPixels(painter, rect) : rect;
    if (fill.alpha() > 0)
        painter.fillPath(smoothRoundedRect(plate, radius), fill);
    if (edge.alpha() > 0 && edgeWidth > 0) {
        const auto width = sharpWidth(painter, edgeWidth);
        const auto half = width / 2;
        painter.strokePath(
            smoothRoundedRect(plate.adjusted(half, half, -half, -half), radius - half),
            QPen(edge, width));
    }
    painter.setRenderHint(QPainter::Antialiasing, wasAntialiased);
}

void paintChecker(
    QPainter& painter, const QRectF& rect, const QColor& light, const QColor& dark, double cell)
{
    fillSharp(painter, rect, light);
    const auto columns = static_cast<int>(std::ceil(rect.width() / cell));
    const auto rows = static_cast<int>(std::ceil(rect.height() / cell));
    for (int row = 0; row < rows; ++row) {
        for (int column = 1 - row % 2; column < columns; column += 2) {
            const QRectF square(rect.left() + column * cell, rect.top() + row * cell, cell, cell);
            fillSharp(painter, square & rect, dark);
        }
    }
}

QRectF alignedToPixels(const QPainter& painter, const QRectF& rect)
{
    const auto toDevice = painter.deviceTransform();
    if (toDevice.type() > QTransform::TxScale)
        return rect;
    const auto device = toDevice.mapRect(rect);
    const auto left = std::round(device.left());
    const auto top = std::round(device.top());
    auto width = std::round(device.right()) - left;
    auto height = std::round(device.bottom()) - top;
    // A thin line keeps its thickness wherever it lies, else neighbours would differ.
    constexpr double thinSide = 4;
    if (device.width() < thinSide)
        width = std::max(1.0, std::round(device.width() - 0.01));
    if (device.height() < thinSide)
        height = std::max(1.0, std::round(device.height() - 0.01));
    if (rect.isEmpty())
        return rect;
    return toDevice.inverted().mapRect(QRectF(left, top, width, height));
}

void fillSharp(QPainter& painter, const QRectF& rect, const QColor& color)
{
    painter.fillRect(alignedToPixels(painter, rect), color);
}

} // namespace platform
