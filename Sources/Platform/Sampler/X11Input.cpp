#include "X11Input.h"

#include <X11/keysym.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace platform {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T> using Reply = std::unique_ptr<T, Free>;

struct KeyRule {
    xcb_keysym_t symbol;
    LoupeKey key;
};

using Action = LoupeKey::Action;

constexpr std::array keyRules {
    KeyRule { XK_Escape, { Action::cancel } },
    KeyRule { XK_Return, { Action::take } },
    KeyRule { XK_KP_Enter, { Action::take } },
    KeyRule { XK_space, { Action::take } },
    KeyRule { XK_Left, { Action::move, -1, 0 } },
    KeyRule { XK_Right, { Action::move, 1, 0 } },
    KeyRule { XK_Up, { Action::move, 0, -1 } },
    KeyRule { XK_Down, { Action::move, 0, 1 } },
    KeyRule { XK_KP_Left, { Action::move, -1, 0 } },
    KeyRule { XK_KP_Right, { Action::move, 1, 0 } },
    KeyRule { XK_KP_Up, { Action::move, 0, -1 } },
    KeyRule { XK_KP_Down, { Action::move, 0, 1 } },
};

} // namespace

bool X11Grab::acquire()
{
    xcb_connection_t* connection = display_.connection();
    constexpr std::uint16_t pointerEvents = XCB_EVENT_MASK_BUTTON_PRESS
        | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION;
    const auto pointerCookie
        = xcb_grab_pointer(connection, /*owner_events=*/0, display_.root(), pointerEvents,
            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const auto keyboardCookie = xcb_grab_keyboard(connection, /*owner_events=*/0, display_.root(),
        XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const Reply<xcb_grab_pointer_reply_t> pointer(
        xcb_grab_pointer_reply(connection, pointerCookie, nullptr));
    const Reply<xcb_grab_keyboard_reply_t> keyboard(
        xcb_grab_keyboard_reply(connection, keyboardCookie, nullptr));
    held_ = true;
    if (pointer && pointer->status == XCB_GRAB_STATUS_SUCCESS && keyboard
        && keyboard->status == XCB_GRAB_STATUS_SUCCESS)
        return true;
    release();
    return false;
}

void X11Grab::setCursor(xcb_cursor_t cursor)
{
    constexpr std::uint16_t pointerEvents = XCB_EVENT_MASK_BUTTON_PRESS
        | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION;
    xcb_change_active_pointer_grab(display_.connection(), cursor, XCB_CURRENT_TIME, pointerEvents);
}

void X11Grab::release()
{
    if (!held_)
        return;
    held_ = false;
    xcb_ungrab_pointer(display_.connection(), XCB_CURRENT_TIME);
    xcb_ungrab_keyboard(display_.connection(), XCB_CURRENT_TIME);
    xcb_flush(display_.connection());
}

X11Keys::X11Keys(const X11Display& display)
{
    readLayout(display);
    readKeysDown(display);
}

void X11Keys::readLayout(const X11Display& display)
{
    const auto* setup = xcb_get_setup(display.connection());
    firstCode_ = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(display.connection(), firstCode_, count);
    const Reply<xcb_get_keyboard_mapping_reply_t> reply(
        xcb_get_keyboard_mapping_reply(display.connection(), cookie, nullptr));
    if (!reply)
        return;
    // The first column is the key without modifiers, which is all that the loupe listens to.
    const auto* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (std::size_t code = 0; code < count; ++code)
        symbols_.push_back(symbols[code * reply->keysyms_per_keycode]);
}

void X11Keys::readKeysDown(const X11Display& display)
{
    const auto cookie = xcb_query_keymap(display.connection());
    const Reply<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(display.connection(), cookie, nullptr));
    if (!reply)
        return;
    for (unsigned code = 0; code < 256; ++code)
        if ((reply->keys[code / 8] >> (code % 8) & 1) != 0)
            downBefore_.insert(static_cast<xcb_keycode_t>(code));
}

void X11Keys::released(const xcb_key_release_event_t& event)
{
    if (downBefore_.erase(event.detail) == 0)
        return;
    releasedCode_ = event.detail;
    releasedAt_ = event.time;
}

/// A key that is held comes again and again as a release and a press of the same moment.
bool X11Keys::isOld(const xcb_key_press_event_t& event)
{
    if (event.detail == releasedCode_ && event.time == releasedAt_)
        downBefore_.insert(event.detail);
    return downBefore_.contains(event.detail);
}

std::optional<LoupeKey> X11Keys::pressed(const xcb_key_press_event_t& event)
{
    const int index = event.detail - firstCode_;
    if (isOld(event) || index < 0 || std::size_t(index) >= symbols_.size())
        return std::nullopt;
    const xcb_keysym_t symbol = symbols_[std::size_t(index)];
    for (const auto& rule : keyRules)
        if (rule.symbol == symbol)
            return rule.key;
    return std::nullopt;
}

} // namespace platform
