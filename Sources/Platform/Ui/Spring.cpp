#include "Spring.h"

#include <cmath>
#include <numbers>

namespace platform {

double springProgress(double seconds, const Spring& spring)
{
    if (seconds <= 0)
        return 0;
    if (spring.response <= 0)
        return 1;
    const auto w = 2 * std::numbers::pi / spring.response;
    if (spring.dampingFraction >= 1)
        return 1 - std::exp(-w * seconds) * (1 + w * seconds);
    const auto decay = spring.dampingFraction * w;
    const auto d = w * std::sqrt(1 - spring.dampingFraction * spring.dampingFraction);
    return 1
        - std::exp(-decay * seconds) * (std::cos(d * seconds) + decay / d * std::sin(d * seconds));
}

double springDuration(const Spring& spring)
{
    return spring.response * (0.45 / 0.32);
}

} // namespace platform
