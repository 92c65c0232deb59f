#include "WindowsAside.h"

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

int picksWithWindowsAside = 0;

/// The item in the tray is a window too, to the toolkit; a tray forgets one that is hidden.
bool makesRoom(const QWindow& window)
{
    return window.type() == Qt::Window && !window.flags().testFlag(Qt::BypassWindowManagerHint)
        && window.isVisible() && !window.windowStates().testFlag(Qt::WindowMinimized)
        && window.handle() != nullptr;
}

} // namespace

WindowsAside::WindowsAside(std::optional<X11Display> display)
    : display_(display)
    , focused_(QGuiApplication::focusWindow())
{
    ++picksWithWindowsAside;
    const auto windows = QGuiApplication::topLevelWindows();
    for (QWindow* window : windows) {
        if (!makesRoom(*window))
            continue;
        windows_.push_back({ window, XCB_WINDOW_NONE });
        if (!display_)
            continue;
        auto& frame = windows_.back().frame;
        frame = display_->frameOf(static_cast<xcb_window_t>(window->winId()));
        area_ = area_.united(display_->geometryOf(frame) & display_->rootGeometry());
    }
    for (const auto& each : windows_)
        if (each.window)
            each.window->setVisible(false);
    sinceHidden_.start();
}

WindowsAside::~WindowsAside()
{
    --picksWithWindowsAside;
    for (const auto& each : windows_)
        if (each.window)
            each.window->setVisible(true);
    if (focused_ && focused_->isVisible())
        focused_->requestActivate();
}

bool WindowsAside::areGone()
{
    if (!sinceUnmapped_.isValid()
        && std::any_of(windows_.begin(), windows_.end(),
            [&](const Window& each) { return display_->isViewable(each.frame); }))
        return sinceHidden_.elapsed() > longestToUnmapMilliseconds;
    if (!sinceUnmapped_.isValid())
        sinceUnmapped_.start();
    if (sinceUnmapped_.elapsed()
        < (display_->hasCompositor() ? fadeMilliseconds : repaintMilliseconds))
        return false;
    const QImage now = display_->read(display_->root(), area_);
    if (now.isNull() || now == last_ || sinceUnmapped_.elapsed() > longestToSettleMilliseconds)
        return true;
    last_ = now;
    return false;
}

bool areWindowsAside()
{
    return picksWithWindowsAside > 0;
}

} // namespace platform
