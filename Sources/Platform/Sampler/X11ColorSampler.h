// The screen pick on X11: our own loupe over every monitor, exact to the device pixel.
#pragma once

#include "ColorSampler.h"
#include "LoupePainter.h"
#include "X11Display.h"

#include <chrono>
#include <functional>
#include <memory>

namespace platform {

/// Freezes the desktop and lets the user take one of its pixels.
///
/// The pointer or the arrow keys (ten pixels with Shift) move the loupe; a left click, Return,
/// Enter and Space take the pixel; Escape and a right click cancel. The picked colour is in the
/// space of the monitor's ICC profile, where it has one. Where the pointer and the keyboard cannot
/// be had, the pick goes to the portal.
class X11ColorSampler final : public ColorSampler {
public:
    struct Limits {
        /// How long another program may keep the pointer or the keyboard to itself.
        std::chrono::milliseconds refusal;
        /// How long the loupe stays without any event, so that it never locks a desktop up.
        std::chrono::milliseconds idle;
    };
    static constexpr Limits usualLimits { std::chrono::seconds(1), std::chrono::minutes(1) };

    /// `impossible` is called before the answer when the portal cannot pick, either.
    X11ColorSampler(
        const X11Display& display, ColorDescriber describe,
        std::function<void()> impossible = [] {}, Limits limits = usualLimits);
    ~X11ColorSampler() override;

    void show(SelectionHandler handler) override;

private:
    class Pick;

    X11Display display_;
    ColorDescriber describe_;
    std::function<void()> impossible_;
    Limits limits_;
    SelectionHandler handler_;
    std::unique_ptr<Pick> pick_;
    std::unique_ptr<ColorSampler> portal_;
};

} // namespace platform
