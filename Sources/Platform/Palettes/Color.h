// A colour as the desktop knows it: components in the colour space that they were measured in.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace platform {

/// A device's RGB space; sRGB itself is the absence of one (see `Color::space`).
class ColorSpace {
public:
    virtual ~ColorSpace() = default;

    /// Gamma-encoded sRGB components, possibly outside 0…1; nothing when the space has no way
    /// there.
    [[nodiscard]] virtual std::optional<std::array<double, 3>> toSRGB(
        const std::array<double, 3>& components) const = 0;
};

/// Red, green and blue in `space`, straight alpha, nominally 0…1 each.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
    /// Null is sRGB.
    std::shared_ptr<const ColorSpace> space {};

    bool operator==(const Color&) const = default;
};

/// The same colour in sRGB, components not clamped; nothing when its space cannot be converted.
[[nodiscard]] std::optional<Color> inSRGB(const Color& color);

/// The colour of `application/x-color`: four channels of 16 bits in the machine's order, and no
/// byte more.
[[nodiscard]] std::optional<Color> colorFromChannels(std::string_view bytes);

/// A component as one of 256 steps: clamped to 0…1, halves away from zero; 0 for what is not a
/// number.
[[nodiscard]] std::uint8_t toByte(double component);

} // namespace platform
