// One screen pick: lets the user choose the colour of any visible pixel.
#pragma once

#include "Color.h"

#include <functional>
#include <memory>
#include <optional>

namespace platform {

/// Answers with the picked colour, or with nothing when the pick was cancelled or is impossible.
class ColorSampler {
public:
    using SelectionHandler = std::function<void(std::optional<Color>)>;

    /// Destroying a sampler that is still picking ends the pick; its handler is then not called any
    /// more.
    virtual ~ColorSampler() = default;

    /// Starts the pick, once a sampler, and does not wait for it. Calls `handler` once, on the main
    /// thread, perhaps before this returns; the handler must leave the sampler alive.
    virtual void show(SelectionHandler handler) = 0;
};

/// Makes a fresh sampler for every pick, never none.
using ColorSamplerFactory = std::function<std::unique_ptr<ColorSampler>()>;

} // namespace platform
