// The screen pick on X11: our own loupe over every monitor, exact to the device pixel.
#pragma once

#include "ColorSampler.h"
#include "SamplerHooks.h"

#include <chrono>
#include <memory>

namespace platform {

class PendingAnswer;

/// Freezes the desktop and lets the user take one of its pixels.
///
/// The pointer or the arrow keys (ten pixels with Shift) move the loupe; a left click, Return,
/// Enter and Space take the pixel; Escape and a right click cancel. The picked colour is in the
/// space of the monitor's ICC profile, where it has one. Where the pointer and the keyboard cannot
/// be had, the pick goes to `fallback`.
class X11ColorSampler final : public ColorSampler {
public:
    struct Limits {
        /// How long another program may keep the pointer or the keyboard to itself.
        std::chrono::milliseconds refusal { 1000 };
        /// How long the loupe stays without any event, so that it never locks a desktop up.
        std::chrono::milliseconds idle { 60000 };
    };

    X11ColorSampler(SamplerHooks hooks, ColorSamplerFactory fallback);
    X11ColorSampler(SamplerHooks hooks, ColorSamplerFactory fallback, Limits limits);
    ~X11ColorSampler() override;

    void show(SelectionHandler handler) override;

private:
    class Pick;

    void unavailable();

    SamplerHooks hooks_;
    ColorSamplerFactory fallback_;
    Limits limits_;
    std::unique_ptr<PendingAnswer> answer_;
    std::unique_ptr<Pick> pick_;
    std::unique_ptr<ColorSampler> other_;
};

} // namespace platform
