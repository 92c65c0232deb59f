// The swatch that gives its colour away: by click, by key, and by drag.
#pragma once

#include "Accessibility.h"

#include <QColor>
#include <QPointF>
#include <QWidget>

#include <functional>
#include <optional>

namespace platform {

/// Draws one colour and tells a click (the pointer moved at most 3 points) from a drag into another
/// program. Takes the size that its container gives it. Return, Space and the press action of
/// assistive technologies do what a click does.
class ColorSwatch : public QWidget {
public:
    /// `cornerRadius` is in points.
    ColorSwatch(const QColor& color, double cornerRadius, std::function<void()> onClick,
        QWidget* parent = nullptr);

    [[nodiscard]] const QColor& color() const { return color_; }
    void setColor(const QColor& color);

    /// What is painted, `color()` unless another one was set: the way there from an older colour. A
    /// drag carries `color()` all the time.
    [[nodiscard]] QColor paintedColor() const { return paintedColor_.value_or(color_); }
    void setPaintedColor(const QColor& color);

    [[nodiscard]] double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double cornerRadius);

    void setOnClick(std::function<void()> onClick) { onClick_ = std::move(onClick); }

    /// Does what a click does.
    void press();

    /// A text for a reader, which is then told when it changes.
    [[nodiscard]] QString readText(QAccessible::Text which);

protected:
    /// What a reader says, worked out when it asks; empty for what the toolkit knows.
    [[nodiscard]] virtual QString textOf(QAccessible::Text /*which*/) const { return {}; }
    void tellNameChanged() { readName_.tell(*this, QAccessible::NameChanged); }

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void endPress();
    void runDrag();

    QColor color_;
    std::optional<QColor> paintedColor_;
    double cornerRadius_;
    ReadMark readName_;
    ReadMark readDescription_;
    std::function<void()> onClick_;
    /// Where the current press began, in the view's coordinates; nothing when none is tracked.
    std::optional<QPointF> mouseDownLocation_;
    /// True once the current press has turned into a drag.
    bool didBeginDrag_ = false;
};

} // namespace platform
