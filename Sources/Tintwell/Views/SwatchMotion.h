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
    /// `moved` is called whenever `view` paints another colour.
    explicit SwatchMotion(DraggableColorView& view, std::function<void()> moved = {});

    /// Brings the view up to date; without a spring a new colour is painted at once.
    void show(const NativeColorSwatch& swatch, const std::optional<platform::Spring>& spring);

private:
    DraggableColorView& view_;
    std::function<void()> moved_;
    platform::Motion motion_;
};

} // namespace tintwell
