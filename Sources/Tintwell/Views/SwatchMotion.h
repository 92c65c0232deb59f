// A swatch on its way to another colour.
#pragma once

#include "Animation.h"
#include "Motion.h"
#include "NativeColorSwatch.h"

#include <functional>
#include <optional>

namespace tintwell {

/// Hosts one swatch. When it is given another colour, what it paints blends along a spring, in
/// gamma-encoded sRGB.
class SwatchMotion {
public:
    /// `view` shows `color`; `moved` is called whenever it paints another one.
    SwatchMotion(
        DraggableColorView& view, const RGBAColor& color, std::function<void()> moved = {});

    /// Brings the view up to date; without a spring a new colour is painted at once.
    void show(const NativeColorSwatch& swatch, const std::optional<platform::Spring>& spring);

private:
    void paint(const RGBAColor& color);

    DraggableColorView& view_;
    RGBAColor target_;
    RGBAColor painted_;
    std::function<void()> moved_;
    platform::Motion motion_;
};

} // namespace tintwell
