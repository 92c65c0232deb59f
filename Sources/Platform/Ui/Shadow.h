// A soft shadow below a smooth rounded rectangle.
#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

class QPainter;

namespace platform {

/// Gaussian shadow in any colour. The blurred shape is computed once a size, at three samples
/// and more across sigma, which nobody can tell from finer ones.
class Shadow {
public:
    /// `radius` is that of the shape's corners, `sigma` the width of the blur: half of what design
    /// tools call the blur radius. Both in points.
    Shadow(double radius, double sigma)
        : radius_(radius)
        , sigma_(sigma)
    {
    }

    /// How far the shadow reaches beyond the shape on every side.
    [[nodiscard]] int reach() const;

    /// Paints the shadow of `shape` in its place; move the rectangle for a shadow that falls lower.
    void paint(QPainter& painter, const QRectF& shape, const QColor& color);

private:
    [[nodiscard]] int step() const;
    void blur(const QSize& size);

    double radius_;
    double sigma_;
    QSize size_;
    QImage mask_;
    QImage image_;
    QColor color_;
};

} // namespace platform
