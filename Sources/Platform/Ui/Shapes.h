// Shapes that every view draws: smooth corners, the transparency checker, and edges that stay sharp
// at any scale of the screen.
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QRectF>

class QPainter;

namespace platform {

/// A rectangle whose corners are quarters of the superellipse |x/a|^2.6 + |y/a|^2.6 = 1 with
/// a = 1.25 `radius`, at most half the shorter side. A radius of 0 or less gives the plain
/// rectangle.
[[nodiscard]] QPainterPath smoothRoundedRect(const QRectF& rect, double radius);

/// A rectangle whose shorter sides are half circles.
[[nodiscard]] QPainterPath capsule(const QRectF& rect);

/// Fills a smooth rounded rectangle, its sides on device pixels. `edge`, when it is not
/// transparent, is a line of `edgeWidth` points that lies wholly inside the shape.
void paintPlate(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
    const QColor& edge = Qt::transparent, double edgeWidth = 1);

/// Squares of two quiet colours behind a fill that is not opaque. `cell` is the side of a square in
/// points; the first light square lies in the top left corner of `rect`.
void paintChecker(QPainter& painter, const QRectF& rect, const QColor& light, const QColor& dark,
    double cell = 5);

/// `rect`, given in the painter's coordinates, with each edge moved to the nearest edge of a device
/// pixel; what is not empty stays at least one device pixel wide and high.
[[nodiscard]] QRectF alignedToPixels(const QPainter& painter, const QRectF& rect);

/// Fills a line or bar without blurred edges: a line one point thick is 1, 1, 2, 2, 3 device pixels
/// at the scales 1, 1.25, 1.5, 2, 3.
void fillSharp(QPainter& painter, const QRectF& rect, const QColor& color);

} // namespace platform
