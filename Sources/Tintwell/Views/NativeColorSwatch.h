// The swatch that copies its colour on a click and lets it be dragged into other programs.
#pragma once

#include "Color.h"
#include "RGBAColor.h"

#include <QPointF>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tintwell {

/// Draws one colour and tells a click (the pointer moved at most 3 points) from a drag. Takes the
/// size that its container gives it. Return, Space and the accessibility press action do what a
/// click does; the container draws the focus ring.
class DraggableColorView final : public QWidget {
public:
    /// `cornerRadius` is in points.
    DraggableColorView(platform::Color color, const std::string& label, double cornerRadius,
        std::function<void()> onClick, QWidget* parent = nullptr);

    [[nodiscard]] const platform::Color& color() const { return color_; }
    void setColor(const platform::Color& color);

    /// What is painted on the way from an older colour to `color()`, which is what a drag carries
    /// all the time.
    [[nodiscard]] const platform::Color& paintedColor() const { return paintedColor_; }
    void setPaintedColor(const platform::Color& color);

    [[nodiscard]] const std::string& label() const { return label_; }
    void setLabel(const std::string& label);

    [[nodiscard]] double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double cornerRadius);

    void setOnClick(std::function<void()> onClick) { onClick_ = std::move(onClick); }

    /// Does what a click does; always handled.
    bool accessibilityPerformPress();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void endPress();
    void runDrag();

    platform::Color color_;
    platform::Color paintedColor_;
    std::string label_;
    double cornerRadius_;
    std::function<void()> onClick_;
    /// Where the current press began, in the view's coordinates; nothing when none is tracked.
    std::optional<QPointF> mouseDownLocation_;
    /// True once the current press has turned into a drag.
    bool didBeginDrag_ = false;
};

/// What one hosted swatch shows, from which its view is made and brought up to date.
struct NativeColorSwatch {
    RGBAColor color;
    std::string label;
    double cornerRadius = 0;
    std::function<void()> onClick;

    [[nodiscard]] std::unique_ptr<DraggableColorView> makeNSView() const;
    void updateNSView(DraggableColorView& view) const;
};

} // namespace tintwell
