// What the application adds to a screen pick that is drawn by itself.
#pragma once

#include "Color.h"
#include "LoupePainter.h"

#include <functional>

namespace platform {

/// Every hook may be left empty.
struct SamplerHooks {
    /// Hides the application's own windows; the picture is taken when they are really gone.
    std::function<void()> willShow {};
    /// Shows them again; comes after the loupe is gone and before the answer.
    std::function<void()> didEnd {};
    /// The label's lines for a picked colour, which may be in a monitor's own space. Without it the
    /// label holds the sRGB hex text alone.
    std::function<ColorDescription(const Color&)> describe {};
};

} // namespace platform
