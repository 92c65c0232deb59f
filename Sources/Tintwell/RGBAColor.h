// The one colour value of the system: gamma-encoded sRGB with straight alpha.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tintwell {

/// Gamma-encoded sRGB components and a straight (not premultiplied) alpha, each 0…1.
///
/// Construction clamps; the fields themselves may hold anything when they come from a hand-edited
/// file (see `stored`). Equality is exact, without tolerance.
struct RGBAColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    RGBAColor() = default;

    /// Clamps each component to 0…1; what is not a number stays so.
    RGBAColor(double red, double green, double blue, double alpha);

    /// The four numbers exactly as they were read from a file, without clamping.
    [[nodiscard]] static RGBAColor stored(double red, double green, double blue, double alpha);

    /// Reads RRGGBB or RRGGBBAA in hexadecimal digits of either case; characters at both ends that
    /// are neither letters, marks nor numbers (Unicode L, M, N) are passed over. Anything else
    /// gives nothing.
    [[nodiscard]] static std::optional<RGBAColor> fromHex(std::string_view text);

    /// "#RRGGBB" in upper case, halves rounded away from zero; alpha is not written. Components are
    /// clamped first.
    [[nodiscard]] std::string hex() const;

    /// WCAG relative luminance, 0…1 for components of 0…1; alpha takes no part.
    [[nodiscard]] double relativeLuminance() const;

    bool operator==(const RGBAColor&) const = default;
};

} // namespace tintwell

template <> struct std::hash<tintwell::RGBAColor> {
    std::size_t operator()(const tintwell::RGBAColor& color) const noexcept;
};
