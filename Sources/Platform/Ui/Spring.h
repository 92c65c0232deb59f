// The movement of a damped spring as arithmetic.
#pragma once

#include "Animation.h"

namespace platform {

/// Where a spring that leaves 0 at rest for 1 is after `seconds`; it overshoots 1 when it is
/// damped below 1. With w = 2 pi / response and z = damping fraction it is
/// 1 - e^(-z w t) (cos(d t) + z w / d sin(d t)), d = w sqrt(1 - z^2). A damping fraction of 1 or
/// more moves as one of 1; no response arrives at once.
[[nodiscard]] double springProgress(double seconds, const Spring& spring);

/// After how many seconds the rest of the movement cannot be seen: 0.45 for a response of 0.32.
[[nodiscard]] double springDuration(const Spring& spring);

} // namespace platform
