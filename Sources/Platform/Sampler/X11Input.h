// The pointer and the keyboard of an X server, held for ourselves while a pick runs.
#pragma once

#include "X11Display.h"

#include <xcb/xcb.h>

#include <optional>
#include <set>
#include <vector>

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

/// What a key does in the loupe.
struct LoupeKey {
    enum class Action { take, cancel, move };
    Action action;
    int dx = 0;
    int dy = 0;
};

/// The keyboard's layout, as far as the loupe listens to it, and the keys that were down before it.
class X11Keys {
public:
    explicit X11Keys(const X11Display& display);

    /// What a pressed key does; nothing for the repetition of one that was down from the start.
    [[nodiscard]] std::optional<LoupeKey> pressed(const xcb_key_press_event_t& event);
    void released(const xcb_key_release_event_t& event);

private:
    void readLayout(const X11Display& display);
    void readKeysDown(const X11Display& display);
    [[nodiscard]] bool isOld(const xcb_key_press_event_t& event);

    xcb_keycode_t firstCode_ = 0;
    std::vector<xcb_keysym_t> symbols_;
    std::set<xcb_keycode_t> downBefore_;
    xcb_keycode_t releasedCode_ = 0;
    xcb_timestamp_t releasedAt_ = 0;
};

} // namespace platform
