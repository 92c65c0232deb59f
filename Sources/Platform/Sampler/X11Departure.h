// Waits until windows that the application has hidden are really off the screen.
#pragma once

#include "X11Display.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPointer>
#include <QRect>
#include <QWindow>

#include <vector>

namespace platform {

/// Made before the windows are hidden, asked again and again afterwards.
class X11Departure {
public:
    /// Remembers the windows that the application shows now.
    explicit X11Departure(const X11Display& display);

    /// The windows that are hidden by now are those to wait for.
    void begin();

    /// Whether they are gone and what lay below them has been drawn again: their frames are
    /// unmapped, a compositor has had the time of a fade, and their place looks the same twice in a
    /// row. True in any case 2 s after a window manager was asked in vain and 0.7 s after the
    /// unmapping.
    [[nodiscard]] bool isOver();

private:
    struct Window {
        QPointer<QWindow> window;
        xcb_window_t frame;
        QRect geometry;
    };

    X11Display display_;
    std::vector<Window> windows_;
    QRect area_;
    QElapsedTimer since_;
    QElapsedTimer unmapped_;
    QImage last_;
};

} // namespace platform
