// A swatch on its way to another colour.
#pragma once

#include "Animation.h"
#include "Motion.h"
#include "NativeColorSwatch.h"

#include <functional>
#include <optional>

namespace tintwell {

/// Blends the colour of one swatch along a spring, in gamma-encoded sRGB.
class SwatchMotion {
public:
    /// `moved` is called whenever the swatch has taken on a colour.
    explicit SwatchMotion(DraggableColorView& swatch, std::function<void()> moved = {});

    /// Without a spring the swatch takes the colour at once.
    void moveTo(const RGBAColor& target, const std::optional<platform::Spring>& spring);

private:
    void set(const RGBAColor& color);

    DraggableColorView& swatch_;
    std::function<void()> moved_;
    platform::Motion motion_;
};

} // namespace tintwell
