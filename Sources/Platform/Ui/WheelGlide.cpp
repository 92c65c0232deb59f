#include "WheelGlide.h"

#include <QAbstractScrollArea>
#include <QGuiApplication>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace platform {

namespace {

constexpr int pixelsPerNotch = 64;
constexpr double anglePerNotch = 120;
constexpr double glideSeconds = 0.14;

} // namespace

void WheelGlide::to(int value)
{
    auto* bar = area_.verticalScrollBar();
    const int start = bar->value();
    end_ = std::clamp(value, bar->minimum(), bar->maximum());
    motion_.run(area_.isVisible() ? glideSeconds : 0, [this, bar, start](double share) {
        bar->setValue(start + qRound((end_ - start) * easedOut(share)));
    });
}

void WheelGlide::turn(QWheelEvent& event)
{
    auto* bar = area_.verticalScrollBar();
    const int wanted = event.angleDelta().y() > 0 ? bar->minimum() : bar->maximum();
    // At its end it leaves the wheel to what scrolls around it.
    if (bar->value() == wanted && !motion_.isRunning())
        return event.ignore();
    // On X11 these are the driver's own units, for the notches of a wheel too.
    const bool hasPixels = QGuiApplication::platformName() != QLatin1String("xcb");
    if (const int pixels = event.pixelDelta().y(); hasPixels && pixels != 0) {
        stop();
        bar->setValue(bar->value() - pixels);
    } else if (const int angle = event.angleDelta().y(); angle != 0) {
        // A notch that comes during a glide goes on from where that one was heading.
        const int from = motion_.isRunning() ? end_ : bar->value();
        to(from - qRound(angle / anglePerNotch * pixelsPerNotch));
    }
    event.accept();
}

} // namespace platform
