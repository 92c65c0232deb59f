// A wheel of hues and saturations.
#pragma once

#include "Accessibility.h"

#include <QImage>
#include <QWidget>

#include <algorithm>
#include <functional>

namespace platform {

/// Red lies to the right, hues turn anticlockwise, white is in the middle. Arrow keys move the
/// knob.
class ColorWheel : public QWidget, public Adjustable {
public:
    /// `picked` hears every move by the user: hue and saturation, 0…1 each.
    ColorWheel(std::function<void(double hue, double saturation)> picked, QWidget* parent);

    /// `shown` fills the knob.
    void show(double hue, double saturation, const QColor& shown);

    /// The hue; a reader has one number only.
    [[nodiscard]] double adjustedValue() const override { return hue_; }
    [[nodiscard]] int mostSpoken() const override { return 360; }
    void adjustTo(double value) override { picked_(std::clamp(value, 0.0, 1.0), saturation_); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] double radius() const { return width() / 2.0; }
    [[nodiscard]] QPointF knob() const;
    void pickAt(QPointF position);

    std::function<void(double, double)> picked_;
    double hue_ = 0;
    double saturation_ = 0;
    QColor shown_ = Qt::white;
    /// Made for one size in device pixels.
    QImage disc_;
};

} // namespace platform
