#include "ColorSwatch.h"

#include "ColorDrag.h"
#include "ColorSwatchAccessible.h"
#include "SwatchPainting.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <cmath>

namespace platform {

namespace {

constexpr double clickReach = 3.0;

/// Where an event lies in the view. The position in the window is the one that the toolkit does not
/// round to whole points.
QPointF locationIn(const QWidget& view, const QMouseEvent& event)
{
    return view.mapFrom(view.window(), event.scenePosition());
}

} // namespace

ColorSwatch::ColorSwatch(
    const QColor& color, double cornerRadius, std::function<void()> onClick, QWidget* parent)
    : QWidget(parent)
    , color_(color)
    , cornerRadius_(cornerRadius)
    , onClick_(std::move(onClick))
{
    installSwatchAccessibility();
    setCursor(Qt::OpenHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

void ColorSwatch::setColor(const QColor& color)
{
    color_ = color;
    update();
}

void ColorSwatch::setPaintedColor(const QColor& color)
{
    if (color == paintedColor_)
        return;
    paintedColor_ = color;
    update();
}

void ColorSwatch::setCornerRadius(double cornerRadius)
{
    cornerRadius_ = cornerRadius;
    update();
}

void ColorSwatch::press()
{
    // The callback may replace itself or take the view away.
    if (const auto onClick = onClick_)
        onClick();
}

void ColorSwatch::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    paintSwatch(painter, rect(), cornerRadius_, paintedColor());
}

void ColorSwatch::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    mouseDownLocation_ = locationIn(*this, *event);
    didBeginDrag_ = false;
}

void ColorSwatch::mouseMoveEvent(QMouseEvent* event)
{
    if (didBeginDrag_ || !mouseDownLocation_)
        return;
    const QPointF moved = locationIn(*this, *event) - *mouseDownLocation_;
    if (std::hypot(moved.x(), moved.y()) <= clickReach)
        return;
    didBeginDrag_ = true;
    runDrag();
}

void ColorSwatch::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const bool isClick = mouseDownLocation_ && !didBeginDrag_;
    endPress();
    if (isClick)
        press();
}

void ColorSwatch::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            press();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void ColorSwatch::hideEvent(QHideEvent* event)
{
    // A view that vanishes under the pointer gets no release.
    if (!didBeginDrag_)
        endPress();
    QWidget::hideEvent(event);
}

void ColorSwatch::endPress()
{
    mouseDownLocation_.reset();
    didBeginDrag_ = false;
}

void ColorSwatch::runDrag()
{
    const QPointer<ColorSwatch> self(this);
    runColorDrag(color_, devicePixelRatioF());
    // The drag took the release; one that comes all the same must not count as a click.
    if (self)
        endPress();
}

} // namespace platform
