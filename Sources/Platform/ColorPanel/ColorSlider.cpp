#include "ColorSlider.h"

#include "Shapes.h"
#include "ThemeSource.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QLineF>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace platform {

namespace {

constexpr double trackHeight = 10;
constexpr double knobRadius = 8;
/// Between the end of a lying track and the knob's outermost centre.
constexpr double knobInset = 6;
/// Room for the knob and its shadow at the ends of a lying track.
constexpr double lyingOverhang = 4;
constexpr QSizeF uprightKnob { 24, 10 };
/// Room for the knob beside the upright track.
constexpr double uprightOverhang = 3;
constexpr int stepCount = 255;
constexpr int manySteps = 10;

/// Three rings stand in for a blur that nobody could tell from them at this size.
void paintKnobShadow(QPainter& painter, const QRectF& shape)
{
    painter.setPen(Qt::NoPen);
    for (const auto& [grow, alpha] :
        { std::pair(2.0, 12), std::pair(1.2, 20), std::pair(0.5, 38) }) {
        painter.setBrush(QColor(0, 0, 0, alpha));
        painter.drawPath(capsule(shape.adjusted(-grow, -grow + 0.7, grow, grow + 0.7)));
    }
}

void paintFocus(QPainter& painter, const QRectF& shape)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(currentTheme().secondary, 2));
    painter.drawPath(capsule(shape.adjusted(-2, -2, 2, 2)));
}

} // namespace

void paintKnob(QPainter& painter, QPointF centre, double radius, const QColor& fill, bool focused)
{
    const QRectF shape(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    painter.setRenderHint(QPainter::Antialiasing);
    paintKnobShadow(painter, shape);
    painter.setBrush(Qt::white);
    painter.drawEllipse(shape);
    if (fill.isValid()) {
        constexpr double ringBands = 2.5;
        painter.setBrush(fill);
        painter.drawEllipse(shape.adjusted(ringBands, ringBands, -ringBands, -ringBands));
    }
    if (focused)
        paintFocus(painter, shape);
}

ColorSlider::ColorSlider(Qt::Orientation orientation, const QString& name,
    std::function<void(double)> moved, QWidget* parent)
    : QWidget(parent)
    , orientation_(orientation)
    , moved_(std::move(moved))
{
    installAccessibility();
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(name);
}

void ColorSlider::show(double value, const QColor& low, const QColor& high)
{
    const double before = adjustedValue();
    value_ = value;
    low_ = low;
    high_ = high;
    update();
    if (adjustedValue() == before || !isVisible())
        return;
    QAccessibleValueChangeEvent changed(this, adjustedValue());
    QAccessible::updateAccessibility(&changed);
}

QRectF ColorSlider::track() const
{
    if (orientation_ == Qt::Vertical)
        return QRectF(rect()).adjusted(uprightOverhang, 0, -uprightOverhang, 0);
    return { lyingOverhang, (height() - trackHeight) / 2, width() - 2 * lyingOverhang,
        trackHeight };
}

QLineF ColorSlider::way() const
{
    const auto bar = track();
    if (orientation_ == Qt::Vertical) {
        const double inset = uprightKnob.height() / 2;
        return { bar.center().x(), bar.bottom() - inset, bar.center().x(), bar.top() + inset };
    }
    const double y = bar.center().y();
    return { bar.left() + knobInset, y, bar.right() - knobInset, y };
}

void ColorSlider::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto bar = track();
    const auto shape = capsule(bar);
    if (low_.alpha() < 255) {
        painter.save();
        painter.setClipPath(shape);
        paintChecker(painter, bar, QColor(0xFF, 0xFF, 0xFF), QColor(0xC4, 0xC4, 0xCA));
        painter.restore();
    }
    QLinearGradient gradient(way().p1(), way().p2());
    gradient.setColorAt(0, low_);
    gradient.setColorAt(1, high_);
    painter.fillPath(shape, gradient);
    painter.strokePath(
        capsule(bar.adjusted(0.375, 0.375, -0.375, -0.375)), QPen(currentTheme().swatchEdge, 0.75));

    const auto centre = way().pointAt(value_);
    if (orientation_ == Qt::Horizontal) {
        paintKnob(painter, centre, knobRadius, QColor(), hasFocus());
        return;
    }
    QRectF knob(QPointF(), uprightKnob);
    knob.moveCenter(centre);
    paintKnobShadow(painter, knob);
    painter.fillPath(capsule(knob), Qt::white);
    if (hasFocus())
        paintFocus(painter, knob);
}

void ColorSlider::mousePressEvent(QMouseEvent* event)
{
    moveTo(event->position());
}

void ColorSlider::mouseMoveEvent(QMouseEvent* event)
{
    moveTo(event->position());
}

void ColorSlider::moveTo(QPointF position)
{
    const auto line = way();
    const auto along = position - line.p1();
    const auto length = line.length();
    const double distance = QPointF::dotProduct(along, line.p2() - line.p1()) / length;
    moved_(std::clamp(distance / length, 0.0, 1.0));
}

void ColorSlider::moveBy(int steps)
{
    adjustTo(value_ + steps / static_cast<double>(stepCount));
}

void ColorSlider::adjustTo(double value)
{
    moved_(std::clamp(value, 0.0, 1.0));
}

void ColorSlider::wheelEvent(QWheelEvent* event)
{
    if (const int angle = event->angleDelta().y(); angle != 0)
        moveBy(angle > 0 ? 1 : -1);
    event->accept();
}

void ColorSlider::keyPressEvent(QKeyEvent* event)
{
    const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? manySteps : 1;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return moveBy(-step);
    case Qt::Key_Right:
    case Qt::Key_Up:
        return moveBy(step);
    case Qt::Key_PageDown:
        return moveBy(-manySteps);
    case Qt::Key_PageUp:
        return moveBy(manySteps);
    case Qt::Key_Home:
        return moveBy(-stepCount);
    case Qt::Key_End:
        return moveBy(stepCount);
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace platform
