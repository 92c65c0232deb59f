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

std::vector<LoupeMonitor> monitorsWithin(const QRect& root)
{
    std::vector<LoupeMonitor> monitors;
    const auto screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        // The toolkit scales a screen's size, but leaves its origin in device pixels.
        const double scale = screen->devicePixelRatio();
        const QRect native(screen->geometry().topLeft(),
            QSize(static_cast<int>(std::lround(screen->geometry().width() * scale)),
                static_cast<int>(std::lround(screen->geometry().height() * scale))));
        monitors.push_back({ native.intersected(root), scale });
    }
    if (monitors.empty())
        monitors.push_back({ root, 1 });
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
    : display_(display)
    , picture_(std::move(picture))
    , monitors_(monitorsWithin(picture_.rect()))
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
    return monitors_[numberAt(pixel)];
}

Color FrozenDesktop::colorAt(QPoint pixel)
{
    const QRgba64 value = picture_.pixelColor(pixel).rgba64();
    constexpr double full = 65535;
    return { value.red() / full, value.green() / full, value.blue() / full, /*alpha=*/1,
        spaceOf(numberAt(pixel)) };
}

std::size_t FrozenDesktop::numberAt(QPoint pixel) const
{
    const auto nearest = std::min_element(monitors_.begin(), monitors_.end(),
        [&](const LoupeMonitor& one, const LoupeMonitor& other) {
            return distance(one.geometry, pixel) < distance(other.geometry, pixel);
        });
    return static_cast<std::size_t>(nearest - monitors_.begin());
}

std::shared_ptr<const ColorSpace> FrozenDesktop::spaceOf(std::size_t monitor)
{
    const auto known = spaces_.find(monitor);
    if (known != spaces_.end())
        return known->second;
    const std::string number = monitor == 0 ? "" : "_" + std::to_string(monitor);
    const auto profile = display_.rootProperty("_ICC_PROFILE" + number);
    return spaces_[monitor] = profile.empty() ? nullptr : iccColorSpace(profile);
}

} // namespace platform
