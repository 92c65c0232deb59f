// The application's own windows make room for a pick.
#pragma once

#include "X11Display.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPointer>
#include <QRect>
#include <QWindow>

#include <optional>
#include <vector>

namespace platform {

/// Takes the windows off the screen for as long as it lives; then they are back, and the one that
/// had the focus has it again.
class WindowsAside {
public:
    /// Without a display nobody can tell when they are gone.
    explicit WindowsAside(std::optional<X11Display> display = std::nullopt);
    ~WindowsAside();
    WindowsAside(const WindowsAside&) = delete;
    WindowsAside& operator=(const WindowsAside&) = delete;

    /// Whether they are gone and what lay below them has been drawn again: their frames are
    /// unmapped, a compositor has had the time of a fade, and their place looks the same twice in a
    /// row. True in any case 2 s after a window manager was asked in vain and 0.7 s after the
    /// unmapping. Needs a display.
    [[nodiscard]] bool areGone();

private:
    struct Window {
        QPointer<QWindow> window;
        xcb_window_t frame;
    };

    std::optional<X11Display> display_;
    std::vector<Window> windows_;
    QPointer<QWindow> focused_;
    QRect area_;
    QElapsedTimer sinceHidden_;
    QElapsedTimer sinceUnmapped_;
    QImage last_;
};

/// True while the application's windows are off the screen for a pick, after which they come back.
[[nodiscard]] bool areWindowsAside();

} // namespace platform
