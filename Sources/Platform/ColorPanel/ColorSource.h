// A place that gives its colour away: by click, by key, and by drag.
#pragma once

#include "Accessibility.h"

#include <QColor>
#include <QPixmap>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>

class QPainter;

namespace platform {

/// "#RRGGBB"
[[nodiscard]] QString hexText(const QColor& color);

/// A smooth square or bar of the colour, over a checker where it is not opaque. `edge` is a line
/// inside it.
void paintColor(QPainter& painter, const QRectF& box, double radius, const QColor& color,
    const QColor& edge, double edgeWidth);

/// Return, Space and a press by a screen reader do what a click does; a pointer that moves more
/// than 3 points with the button down drags the colour.
class ColorSource : public QWidget, public Pressable {
public:
    ColorSource(QAccessible::Role role, QWidget* parent);

    void setPressed(std::function<void()> pressed) { pressed_ = std::move(pressed); }
    void press() override;

    [[nodiscard]] const QColor& color() const { return color_; }
    void setColor(const QColor& color);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QPixmap dragPicture() const;

    std::function<void()> pressed_;
    QColor color_;
    std::optional<QPointF> pressPlace_;
};

} // namespace platform
