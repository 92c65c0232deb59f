#include "Color.h"

#include <algorithm>
#include <cmath>

namespace platform {

std::optional<Color> inSRGB(const Color& color)
{
    if (!color.space)
        return color;
    const auto components = color.space->toSRGB({ color.red, color.green, color.blue });
    if (!components)
        return std::nullopt;
    return Color { (*components)[0], (*components)[1], (*components)[2], color.alpha };
}

std::uint8_t toByte(double component)
{
    if (std::isnan(component))
        return 0;
    return static_cast<std::uint8_t>(std::round(std::clamp(component, 0.0, 1.0) * 255));
}

} // namespace platform
