// Chooses how a colour is picked from the screen of this session.
#pragma once

#include "ColorSampler.h"
#include "LoupePainter.h"

namespace platform {

/// Makes the sampler that fits the session at the time of each pick: the loupe on an X server of
/// the user's own, else the portal. `describe` gives the loupe's label; `impossible` is called
/// before the answer of a pick that the session has no means for.
[[nodiscard]] ColorSamplerFactory makeColorSamplerFactory(
    ColorDescriber describe, std::function<void()> impossible = [] {});

} // namespace platform
