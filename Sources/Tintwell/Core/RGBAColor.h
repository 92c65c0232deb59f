// The one colour value of the system: gamma-encoded sRGB with straight alpha.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
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
    constexpr RGBAColor(double r, double g, double b, double a)
        : red(clamped(r))
        , green(clamped(g))
        , blue(clamped(b))
        , alpha(clamped(a))
    {
    }

    /// The four numbers exactly as they were read from a file, without clamping.
    [[nodiscard]] static constexpr RGBAColor stored(double r, double g, double b, double a)
    {
        RGBAColor color;
        color.red = r;
        color.green = g;
        color.blue = b;
        color.alpha = a;
        return color;
    }

    /// Reads RRGGBB or RRGGBBAA in hexadecimal digits of either case; characters at both ends that
    /// are neither letters, marks nor numbers (Unicode L, M, N) are passed over. Anything else
    /// gives nothing.
    [[nodiscard]] static std::optional<RGBAColor> fromHex(std::string_view text);

    /// "#RRGGBB" in upper case, halves rounded away from zero; alpha is not written. Components are
    /// clamped first.
    [[nodiscard]] std::string hex() const;

    /// `hex`, with two more digits for the alpha of a colour that is not opaque.
    [[nodiscard]] std::string hexWithAlpha() const;

    /// Red, green, blue and alpha as steps of 255, rounded as in `hex`.
    [[nodiscard]] std::array<std::uint8_t, 4> bytes() const;

    /// WCAG relative luminance, 0…1 for components of 0…1; alpha takes no part.
    [[nodiscard]] double relativeLuminance() const;

    bool operator==(const RGBAColor&) const = default;

private:
    [[nodiscard]] static constexpr double clamped(double component)
    {
        if (component <= 0)
            return 0;
        return component > 1 ? 1 : component;
    }
};

/// What a palette is made of before anything else has been chosen: #6E56CF.
inline constexpr RGBAColor seedColor { 110 / 255.0, 86 / 255.0, 207 / 255.0, 1 };

} // namespace tintwell

template <> struct std::hash<tintwell::RGBAColor> {
    std::size_t operator()(const tintwell::RGBAColor& color) const noexcept;
};
