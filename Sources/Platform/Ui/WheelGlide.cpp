#include "WheelGlide.h"

#include "ThemeSource.h"

#include <QAbstractScrollArea>
#include <QGuiApplication>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace platform {

namespace {

constexpr int pixelsPerNotch = 64;
constexpr double anglePerNotch = 120;
constexpr int glideMilliseconds = 140;

} // namespace

WheelGlide::WheelGlide(QAbstractScrollArea& area)
    : area_(area)
    , animation_(area.verticalScrollBar(), "value")
{
    animation_.setEasingCurve(QEasingCurve::OutCubic);
    animation_.setDuration(glideMilliseconds);
}

void WheelGlide::to(int value)
{
    auto* bar = area_.verticalScrollBar();
    const int end = std::clamp(value, bar->minimum(), bar->maximum());
    stop();
    if (ThemeSource::instance().reducesMotion() || !area_.isVisible()) {
        bar->setValue(end);
        return;
    }
    animation_.setStartValue(bar->value());
    animation_.setEndValue(end);
    animation_.start();
}

void WheelGlide::turn(QWheelEvent& event)
{
    auto* bar = area_.verticalScrollBar();
    const int wanted = event.angleDelta().y() > 0 ? bar->minimum() : bar->maximum();
    const bool gliding = animation_.state() == QAbstractAnimation::Running;
    // At its end it leaves the wheel to what scrolls around it.
    if (bar->value() == wanted && !gliding)
        return event.ignore();
    // On X11 these are the driver's own units, for the notches of a wheel too.
    const bool hasPixels = QGuiApplication::platformName() != QLatin1String("xcb");
    if (const int pixels = event.pixelDelta().y(); hasPixels && pixels != 0) {
        stop();
        bar->setValue(bar->value() - pixels);
    } else if (const int angle = event.angleDelta().y(); angle != 0) {
        // A notch that comes during a glide goes on from where that one was heading.
        const int from = gliding ? animation_.endValue().toInt() : bar->value();
        to(from - qRound(angle / anglePerNotch * pixelsPerNotch));
    }
    event.accept();
}

} // namespace platform
