#include "Color.h"

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

} // namespace platform
