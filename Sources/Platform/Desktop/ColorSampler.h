// One screen pick: lets the user choose the colour of any visible pixel.
#pragma once

#include "Color.h"

#include <functional>
#include <memory>
#include <optional>

namespace platform {

/// Shows a loupe and answers with the picked colour, or with nothing when the pick was cancelled or
/// is impossible.
class ColorSampler {
public:
    using SelectionHandler = std::function<void(std::optional<Color>)>;

    /// Destroying a sampler that is still picking takes its loupe away; its handler is then not
    /// called any more.
    virtual ~ColorSampler() = default;

    /// Returns at once; calls `handler` exactly once, later, on the main thread. One call a
    /// sampler, which may be destroyed from inside its handler.
    virtual void show(SelectionHandler handler) = 0;
};

/// Makes a fresh sampler for every pick.
using ColorSamplerFactory = std::function<std::unique_ptr<ColorSampler>()>;

} // namespace platform
