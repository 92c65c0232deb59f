#include "ColorWheel.h"

#include "ColorSlider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <numbers>

namespace platform {

namespace {

constexpr double fullTurn = 2 * std::numbers::pi;
constexpr double knobRadius = 9;
/// The part of the wheel's radius that an arrow key moves the knob by.
constexpr double keyStep = 0.02;

QRgb discPixel(double x, double y, double radius)
{
    const double distance = std::hypot(x, y);
    const double edge = std::clamp(radius - distance + 0.5, 0.0, 1.0);
    if (edge <= 0)
        return 0;
    const double turn = std::atan2(-y, x) / fullTurn;
    const auto color = QColor::fromHsvF(static_cast<float>(turn < 0 ? turn + 1 : turn),
        static_cast<float>(std::min(1.0, distance / radius)), 1);
    return qPremultiply(
        qRgba(color.red(), color.green(), color.blue(), static_cast<int>(std::lround(edge * 255))));
}

QImage makeDisc(int side)
{
    QImage disc(side, side, QImage::Format_ARGB32_Premultiplied);
    const double radius = side / 2.0;
    for (int y = 0; y < side; ++y) {
        auto* line = reinterpret_cast<QRgb*>(disc.scanLine(y));
        for (int x = 0; x < side; ++x)
            line[x] = discPixel(x + 0.5 - radius, y + 0.5 - radius, radius);
    }
    return disc;
}

} // namespace

ColorWheel::ColorWheel(std::function<void(double, double)> picked, QWidget* parent)
    : QWidget(parent)
    , picked_(std::move(picked))
{
    installAccessibility();
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(QStringLiteral("Hue and saturation"));
}

void ColorWheel::show(double hue, double saturation, const QColor& shown)
{
    const double before = adjustedValue();
    hue_ = hue;
    saturation_ = saturation;
    shown_ = shown;
    update();
    if (adjustedValue() == before || !isVisible())
        return;
    QAccessibleValueChangeEvent changed(this, adjustedValue());
    QAccessible::updateAccessibility(&changed);
}

QPointF ColorWheel::knob() const
{
    const double distance = saturation_ * radius();
    return { radius() + distance * std::cos(hue_ * fullTurn),
        radius() - distance * std::sin(hue_ * fullTurn) };
}

void ColorWheel::paintEvent(QPaintEvent* /*event*/)
{
    const int side = static_cast<int>(std::lround(width() * devicePixelRatioF()));
    if (disc_.width() != side)
        disc_ = makeDisc(side);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawImage(QRectF(rect()), disc_);
    paintKnob(painter, knob(), knobRadius, shown_, hasFocus());
}

void ColorWheel::mousePressEvent(QMouseEvent* event)
{
    pickAt(event->position());
}

void ColorWheel::mouseMoveEvent(QMouseEvent* event)
{
    pickAt(event->position());
}

void ColorWheel::keyPressEvent(QKeyEvent* event)
{
    const double step = keyStep * radius();
    switch (event->key()) {
    case Qt::Key_Left:
        return pickAt(knob() + QPointF(-step, 0));
    case Qt::Key_Right:
        return pickAt(knob() + QPointF(step, 0));
    case Qt::Key_Up:
        return pickAt(knob() + QPointF(0, -step));
    case Qt::Key_Down:
        return pickAt(knob() + QPointF(0, step));
    default:
        QWidget::keyPressEvent(event);
    }
}

void ColorWheel::pickAt(QPointF position)
{
    const auto offset = position - QPointF(radius(), radius());
    const double distance = std::min(1.0, std::hypot(offset.x(), offset.y()) / radius());
    double turn = std::atan2(-offset.y(), offset.x()) / fullTurn;
    if (turn < 0)
        turn += 1;
    // The middle has every hue; it keeps the one that was.
    picked_(distance < 1e-6 ? hue_ : turn, distance);
}

} // namespace platform
