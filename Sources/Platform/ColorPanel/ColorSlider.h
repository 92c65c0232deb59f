// A slider whose track shows the colours that it leads to.
#pragma once

#include "Accessibility.h"

#include <QColor>
#include <QWidget>

#include <functional>

class QPainter;

namespace platform {

/// A value of 0…1 between two colours, left to right or bottom to top. Arrow keys move by one of
/// 255 steps, with Shift or the page keys by ten; the wheel by one.
class ColorSlider : public QWidget, public Adjustable {
public:
    ColorSlider(Qt::Orientation orientation, const QString& name, std::function<void(double)> moved,
        QWidget* parent);

    /// A translucent end shows the transparency checker.
    void show(double value, const QColor& low, const QColor& high);

    [[nodiscard]] double adjustedValue() const override { return value_; }
    void adjustTo(double value) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] QRectF track() const;
    /// From the lowest to the highest place of the knob's centre.
    [[nodiscard]] QLineF way() const;
    void moveTo(QPointF position);
    void moveBy(int steps);

    Qt::Orientation orientation_;
    std::function<void(double)> moved_;
    double value_ = 0;
    QColor low_ = Qt::black;
    QColor high_ = Qt::white;
};

/// A white disc with a soft shadow, `fill` in its middle if it is valid.
void paintKnob(QPainter& painter, QPointF centre, double radius, const QColor& fill, bool focused);

} // namespace platform
