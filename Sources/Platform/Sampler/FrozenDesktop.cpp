#include "FrozenDesktop.h"

#include "IccColorSpace.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace platform {

namespace {

/// The space of the monitor of that number, in the order in which the toolkit counts them, too.
std::shared_ptr<const ColorSpace> spaceOf(const X11Display& display, std::size_t number)
{
    const std::string suffix = number == 0 ? "" : "_" + std::to_string(number);
    const auto profile = display.rootProperty("_ICC_PROFILE" + suffix);
    return profile.empty() ? nullptr : iccColorSpace(profile);
}

std::vector<LoupeMonitor> monitorsWithin(const QRect& root, const X11Display& display)
{
    std::vector<LoupeMonitor> monitors;
    const auto screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        // The toolkit scales a screen's size, but leaves its origin in device pixels.
        const double scale = screen->devicePixelRatio();
        const QRect native(screen->geometry().topLeft(),
            QSize(static_cast<int>(std::lround(screen->geometry().width() * scale)),
                static_cast<int>(std::lround(screen->geometry().height() * scale))));
        monitors.push_back({ native.intersected(root), scale, spaceOf(display, monitors.size()) });
    }
    if (monitors.empty())
        monitors.push_back({ root, 1, spaceOf(display, 0) });
    return monitors;
}

int distance(const QRect& rect, QPoint point)
{
    const int across = std::max({ rect.left() - point.x(), 0, point.x() - rect.right() });
    const int down = std::max({ rect.top() - point.y(), 0, point.y() - rect.bottom() });
    return across + down;
}

QPoint clamped(QPoint point, const QRect& rect)
{
    return { std::clamp(point.x(), rect.left(), rect.right()),
        std::clamp(point.y(), rect.top(), rect.bottom()) };
}

} // namespace

FrozenDesktop::FrozenDesktop(const X11Display& display, QImage picture)
    : picture_(std::move(picture))
    , monitors_(monitorsWithin(picture_.rect(), display))
{
}

QPoint FrozenDesktop::nearest(QPoint pixel) const
{
    return clamped(pixel, picture_.rect());
}

QPoint FrozenDesktop::stepped(QPoint pixel, QPoint by) const
{
    const QPoint next = pixel + by;
    const bool seen = std::any_of(monitors_.begin(), monitors_.end(),
        [&](const LoupeMonitor& monitor) { return monitor.geometry.contains(next); });
    return seen ? next : clamped(next, monitorAt(pixel).geometry);
}

const LoupeMonitor& FrozenDesktop::monitorAt(QPoint pixel) const
{
    return *std::min_element(monitors_.begin(), monitors_.end(),
        [&](const LoupeMonitor& one, const LoupeMonitor& other) {
            return distance(one.geometry, pixel) < distance(other.geometry, pixel);
        });
}

Color FrozenDesktop::colorAt(QPoint pixel) const
{
    const QRgba64 value = picture_.pixelColor(pixel).rgba64();
    constexpr double full = 65535;
    return { value.red() / full, value.green() / full, value.blue() / full, /*alpha=*/1,
        monitorAt(pixel).space };
}

} // namespace platform
