#include "LoupeGestures.h"

#include "XcbReply.h"

#include <X11/keysym.h>

#include <array>
#include <utility>

namespace platform {

namespace {

using Kind = LoupeAction::Kind;

constexpr int farStep = 10;

struct KeyRule {
    xcb_keysym_t symbol;
    LoupeAction action;
};

constexpr std::array keyRules {
    KeyRule { XK_Escape, { Kind::cancel } },
    KeyRule { XK_Return, { Kind::take } },
    KeyRule { XK_KP_Enter, { Kind::take } },
    KeyRule { XK_space, { Kind::take } },
    KeyRule { XK_Left, { Kind::stepBy, { -1, 0 } } },
    KeyRule { XK_Right, { Kind::stepBy, { 1, 0 } } },
    KeyRule { XK_Up, { Kind::stepBy, { 0, -1 } } },
    KeyRule { XK_Down, { Kind::stepBy, { 0, 1 } } },
    KeyRule { XK_KP_Left, { Kind::stepBy, { -1, 0 } } },
    KeyRule { XK_KP_Right, { Kind::stepBy, { 1, 0 } } },
    KeyRule { XK_KP_Up, { Kind::stepBy, { 0, -1 } } },
    KeyRule { XK_KP_Down, { Kind::stepBy, { 0, 1 } } },
};

std::uint8_t typeOf(const xcb_generic_event_t& event)
{
    constexpr std::uint8_t sentByAnotherProgram = 0x80;
    return event.response_type & static_cast<std::uint8_t>(~sentByAnotherProgram);
}

} // namespace

LoupeGestures::LoupeGestures(const X11Display& display)
    : display_(display)
{
    readLayout();
    readKeysDown();
}

void LoupeGestures::readLayout()
{
    const auto* setup = xcb_get_setup(display_.connection());
    firstCode_ = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(display_.connection(), firstCode_, count);
    const XcbReply<xcb_get_keyboard_mapping_reply_t> reply(
        xcb_get_keyboard_mapping_reply(display_.connection(), cookie, nullptr));
    if (!reply)
        return;
    // The first column is the key without modifiers, which is all that the loupe listens to.
    const auto* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (std::size_t code = 0; code < count; ++code)
        symbols_.push_back(symbols[code * reply->keysyms_per_keycode]);
}

void LoupeGestures::readKeysDown()
{
    const auto cookie = xcb_query_keymap(display_.connection());
    const XcbReply<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(display_.connection(), cookie, nullptr));
    if (!reply)
        return;
    for (unsigned code = 0; code < 256; ++code)
        if ((reply->keys[code / 8] >> (code % 8) & 1) != 0)
            downBefore_.insert(static_cast<xcb_keycode_t>(code));
}

bool LoupeGestures::isInput(const xcb_generic_event_t& event)
{
    return typeOf(event) >= XCB_KEY_PRESS && typeOf(event) <= XCB_MOTION_NOTIFY;
}

std::optional<LoupeAction> LoupeGestures::action(const xcb_generic_event_t& event, bool loupeShows)
{
    switch (typeOf(event)) {
    case XCB_KEY_PRESS:
        return keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    case XCB_KEY_RELEASE:
        keyReleased(reinterpret_cast<const xcb_key_release_event_t&>(event));
        return std::nullopt;
    case XCB_BUTTON_PRESS:
        if (const auto button = reinterpret_cast<const xcb_button_press_event_t&>(event).detail;
            loupeShows || button == XCB_BUTTON_INDEX_3)
            pressedButton_ = button;
        return std::nullopt;
    case XCB_BUTTON_RELEASE:
        return buttonReleased(reinterpret_cast<const xcb_button_release_event_t&>(event));
    case XCB_MOTION_NOTIFY:
        return pointerMoved(event);
    default:
        return std::nullopt;
    }
}

std::optional<LoupeAction> LoupeGestures::keyPressed(const xcb_key_press_event_t& event)
{
    const int index = event.detail - firstCode_;
    if (isOld(event) || index < 0 || std::size_t(index) >= symbols_.size())
        return std::nullopt;
    for (const auto& rule : keyRules) {
        if (rule.symbol != symbols_[std::size_t(index)])
            continue;
        const bool isFar = (event.state & XCB_MOD_MASK_SHIFT) != 0;
        return LoupeAction { rule.action.kind, rule.action.to * (isFar ? farStep : 1) };
    }
    return std::nullopt;
}

/// A key that is held comes again and again as a release and a press of the same moment.
bool LoupeGestures::isOld(const xcb_key_press_event_t& event)
{
    if (event.detail == releasedCode_ && event.time == releasedAt_)
        downBefore_.insert(event.detail);
    return downBefore_.contains(event.detail);
}

void LoupeGestures::keyReleased(const xcb_key_release_event_t& event)
{
    if (downBefore_.erase(event.detail) == 0)
        return;
    releasedCode_ = event.detail;
    releasedAt_ = event.time;
}

std::optional<LoupeAction> LoupeGestures::buttonReleased(const xcb_button_release_event_t& event)
{
    if (event.detail != std::exchange(pressedButton_, 0))
        return std::nullopt;
    if (event.detail == XCB_BUTTON_INDEX_3)
        return LoupeAction { Kind::cancel };
    if (event.detail == XCB_BUTTON_INDEX_1)
        return LoupeAction { Kind::takeAt, { event.root_x, event.root_y } };
    return std::nullopt;
}

/// A movement from before our last warp is history: it must not undo a key's step.
std::optional<LoupeAction> LoupeGestures::pointerMoved(const xcb_generic_event_t& event) const
{
    if (lastWarp_ && static_cast<std::int32_t>(event.full_sequence - *lastWarp_) < 0)
        return std::nullopt;
    const auto& motion = reinterpret_cast<const xcb_motion_notify_event_t&>(event);
    return LoupeAction { Kind::moveTo, { motion.root_x, motion.root_y } };
}

void LoupeGestures::warpPointer(QPoint pixel)
{
    lastWarp_ = xcb_warp_pointer(display_.connection(), XCB_NONE, display_.root(), 0, 0, 0, 0,
        static_cast<std::int16_t>(pixel.x()), static_cast<std::int16_t>(pixel.y()))
                    .sequence;
}

} // namespace platform
