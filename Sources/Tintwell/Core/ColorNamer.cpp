#include "ColorNamer.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tintwell {

namespace {

/// A name for values from `from` (included) to `below` (excluded).
struct NamedRange {
    double from;
    double below;
    std::string_view name;
};

constexpr double neutralChromaLimit = 0.025;

// clang-format off
constexpr std::array neutralsByLightness {
    NamedRange { 0,    0.16, "Near Black" },
    NamedRange { 0.16, 0.38, "Charcoal" },
    NamedRange { 0.38, 0.72, "Neutral Gray" },
    NamedRange { 0.72, 0.92, "Soft Gray" },
};
constexpr std::string_view otherNeutral = "Near White";

constexpr std::array familiesByHue {
    NamedRange { 0,   15,  "Crimson" },
    NamedRange { 345, 360, "Crimson" },
    NamedRange { 15,  42,  "Coral" },
    NamedRange { 42,  68,  "Amber" },
    NamedRange { 68,  100, "Gold" },
    NamedRange { 100, 132, "Lime" },
    NamedRange { 132, 165, "Green" },
    NamedRange { 165, 198, "Mint" },
    NamedRange { 198, 225, "Cyan" },
    NamedRange { 225, 252, "Azure" },
    NamedRange { 252, 278, "Blue" },
    NamedRange { 278, 310, "Violet" },
    NamedRange { 310, 345, "Magenta" },
};
constexpr std::string_view otherFamily = "Color";
// clang-format on

template <std::size_t size>
std::string_view nameIn(
    const std::array<NamedRange, size>& table, double value, std::string_view otherwise)
{
    const auto row = std::find_if(table.begin(), table.end(),
        [value](const auto& range) { return value >= range.from && value < range.below; });
    return row == table.end() ? otherwise : row->name;
}

/// Lightness decides before chroma: a very dark or very light colour is never "Vivid ".
std::string_view modifierOf(const OKLCH& color)
{
    if (color.lightness < 0.3)
        return "Deep ";
    if (color.lightness >= 0.82)
        return "Pale ";
    if (color.chroma >= 0.2)
        return "Vivid ";
    if (color.lightness >= 0.68)
        return "Soft ";
    return "";
}

} // namespace

std::string ColorNamer::name(const OKLCH& color) const
{
    if (color.chroma < neutralChromaLimit)
        return std::string(nameIn(neutralsByLightness, color.lightness, otherNeutral));
    std::string name(modifierOf(color));
    name += nameIn(familiesByHue, color.hue, otherFamily);
    return name;
}

} // namespace tintwell
