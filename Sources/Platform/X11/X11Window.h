// What an X11 window of ours tells the window manager and the server about itself.
#pragma once

#include "X11Display.h"

#include <QMargins>
#include <QRect>

namespace platform {

/// Keeps a window that is not on the screen yet out of task bars and pagers, and above others.
void leaveOutOfTaskbar(const X11Display& display, xcb_window_t window);

/// Says how much of the window, in device pixels, is only its shadow.
void setFrameMargins(const X11Display& display, xcb_window_t window, const QMargins& margins);

/// Takes clicks and drops only inside `rect`, in device pixels; the rest goes to what lies below.
void setInputRect(const X11Display& display, xcb_window_t window, const QRect& rect);

} // namespace platform
