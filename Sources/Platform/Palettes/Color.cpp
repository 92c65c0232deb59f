#include "Color.h"

#include <algorithm>
#include <cmath>
#include <cstring>

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

std::optional<Color> colorFromChannels(std::string_view bytes)
{
    std::array<std::uint16_t, 4> channels {};
    if (bytes.size() != sizeof channels)
        return std::nullopt;
    std::memcpy(channels.data(), bytes.data(), sizeof channels);
    constexpr double most = 0xFFFF;
    return Color { channels[0] / most, channels[1] / most, channels[2] / most, channels[3] / most };
}

std::uint8_t toByte(double component)
{
    if (std::isnan(component))
        return 0;
    return static_cast<std::uint8_t>(std::round(std::clamp(component, 0.0, 1.0) * 255));
}

} // namespace platform
