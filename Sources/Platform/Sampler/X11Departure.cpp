#include "X11Departure.h"

#include <QGuiApplication>

#include <algorithm>

namespace platform {

namespace {

// A window manager that hangs must not keep the pick from beginning.
constexpr qint64 longestToUnmapMilliseconds = 2000;
// What lies below may never stand still, such as a film.
constexpr qint64 longestToSettleMilliseconds = 700;
// A compositor goes on showing a window while it fades it out, without a word to anyone.
constexpr qint64 fadeMilliseconds = 200;
constexpr qint64 repaintMilliseconds = 30;

} // namespace

X11Departure::X11Departure(const X11Display& display)
    : display_(display)
{
    const auto windows = QGuiApplication::topLevelWindows();
    for (QWindow* window : windows) {
        if (!window->isVisible() || window->handle() == nullptr)
            continue;
        const auto frame = display_.frameOf(static_cast<xcb_window_t>(window->winId()));
        windows_.push_back({ window, frame, display_.geometryOf(frame) });
    }
}

void X11Departure::begin()
{
    const auto stays
        = [](const Window& each) { return each.window != nullptr && each.window->isVisible(); };
    windows_.erase(std::remove_if(windows_.begin(), windows_.end(), stays), windows_.end());
    for (const auto& each : windows_)
        area_ = area_.united(each.geometry);
    area_ = area_.intersected(display_.rootGeometry());
    since_.start();
}

bool X11Departure::isOver()
{
    if (!unmapped_.isValid()
        && std::any_of(windows_.begin(), windows_.end(),
            [&](const Window& each) { return display_.isViewable(each.frame); }))
        return since_.elapsed() > longestToUnmapMilliseconds;
    if (!unmapped_.isValid())
        unmapped_.start();
    if (unmapped_.elapsed() < (display_.hasCompositor() ? fadeMilliseconds : repaintMilliseconds))
        return false;
    const QImage now = display_.read(display_.root(), area_);
    if (now.isNull() || now == last_ || unmapped_.elapsed() > longestToSettleMilliseconds)
        return true;
    last_ = now;
    return false;
}

} // namespace platform
