// The frozen desktop with the loupe over it: one window that covers every monitor.
#pragma once

#include "LoupePainter.h"
#include "X11Display.h"

#include <QImage>
#include <QRect>
#include <xcb/xcb.h>

#include <memory>

namespace platform {

/// Covers the screen from `freeze` until it is destroyed. The server keeps the frozen picture as
/// the window's background, so that only the loupe itself is ever sent again.
class LoupeWindow {
public:
    /// Takes the picture of the whole desktop as it is now; nothing when the server refuses it.
    [[nodiscard]] static std::unique_ptr<LoupeWindow> freeze(const X11Display& display);

    ~LoupeWindow();
    LoupeWindow(const LoupeWindow&) = delete;
    LoupeWindow& operator=(const LoupeWindow&) = delete;

    [[nodiscard]] const QImage& frozen() const { return frozen_; }
    /// Whether the event says that a part of the window has to be drawn again.
    [[nodiscard]] bool isExposedBy(const xcb_generic_event_t& event) const;
    /// A cursor without a single visible pixel.
    [[nodiscard]] xcb_cursor_t blankCursor() const { return cursor_; }

    void map();
    /// Replaces the loupe that is there; what it uncovers is the frozen desktop again.
    void show(const LoupePicture& loupe);

private:
    LoupeWindow(const X11Display& display, const QRect& geometry);
    void createCursor();
    void createWindow();

    X11Display display_;
    QRect geometry_;
    QRect covered_;
    QImage frozen_;
    xcb_pixmap_t background_ = XCB_NONE;
    xcb_gcontext_t context_ = XCB_NONE;
    xcb_cursor_t cursor_ = XCB_NONE;
    xcb_window_t window_ = XCB_NONE;
};

} // namespace platform
