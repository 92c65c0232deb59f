// What the user's keys, clicks and movements mean to the loupe.
#pragma once

#include "X11Display.h"

#include <QPoint>
#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

namespace platform {

struct LoupeAction {
    enum class Kind { cancel, take, takeAt, stepBy, moveTo };
    Kind kind;
    /// The distance of a step, or the pixel to go to.
    QPoint to {};
};

/// Reads the events of a grab. What was pressed before it, and repeats since then, means nothing.
class LoupeGestures {
public:
    explicit LoupeGestures(const X11Display& display);

    [[nodiscard]] static bool isInput(const xcb_generic_event_t& event);
    /// Nothing for most events. A button that is pressed before the loupe shows is not meant for
    /// it, except to get out.
    [[nodiscard]] std::optional<LoupeAction> action(
        const xcb_generic_event_t& event, bool loupeShows);

    /// Takes the pointer along with a step.
    void warpPointer(QPoint pixel);

private:
    void readLayout();
    void readKeysDown();
    [[nodiscard]] std::optional<LoupeAction> keyPressed(const xcb_key_press_event_t& event);
    void keyReleased(const xcb_key_release_event_t& event);
    [[nodiscard]] std::optional<LoupeAction> buttonReleased(
        const xcb_button_release_event_t& event);
    [[nodiscard]] std::optional<LoupeAction> pointerMoved(const xcb_generic_event_t& event) const;
    [[nodiscard]] bool isOld(const xcb_key_press_event_t& event);

    X11Display display_;
    xcb_keycode_t firstCode_ = 0;
    std::vector<xcb_keysym_t> symbols_;
    std::set<xcb_keycode_t> downBefore_;
    xcb_keycode_t releasedCode_ = 0;
    xcb_timestamp_t releasedAt_ = 0;
    xcb_button_t pressedButton_ = 0;
    std::optional<std::uint32_t> lastWarp_;
};

} // namespace platform
