// A swatch on its way to another colour.
#pragma once

#include "Animation.h"
#include "Motion.h"
#include "NativeColorSwatch.h"

#include <functional>
#include <optional>

namespace tintwell {

/// Gives one swatch another colour; what it paints blends along a spring, in gamma-encoded sRGB.
class SwatchMotion {
public:
    /// `moved` is called whenever the swatch paints another colour.
    explicit SwatchMotion(DraggableColorView& swatch, std::function<void()> moved = {});

    /// Without a spring it is painted at once.
    void moveTo(const RGBAColor& target, const std::optional<platform::Spring>& spring);

private:
    void paint(const RGBAColor& color);

    DraggableColorView& swatch_;
    std::function<void()> moved_;
    platform::Motion motion_;
};

} // namespace tintwell
