// The pointer and the keyboard of an X server, held for ourselves while a pick runs.
#pragma once

#include "X11Display.h"

#include <xcb/xcb.h>

namespace platform {

/// The active grab of both devices on the root window; events tell positions in device pixels.
class X11Grab {
public:
    explicit X11Grab(const X11Display& display)
        : display_(display)
    {
    }
    ~X11Grab() { release(); }
    X11Grab(const X11Grab&) = delete;
    X11Grab& operator=(const X11Grab&) = delete;

    /// Takes both devices, or neither when another program holds one of them.
    [[nodiscard]] bool acquire();
    void setCursor(xcb_cursor_t cursor);
    void release();

private:
    X11Display display_;
    bool held_ = false;
};

} // namespace platform
