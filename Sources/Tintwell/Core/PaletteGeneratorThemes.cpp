#include "NumberText.h"
#include "PaletteGenerator.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace tintwell {

namespace {

enum class Lightness { exactly, atMost, atLeast };

/// A fixed lightness, or the base's own kept below or above a limit.
struct LightnessRule {
    Lightness kind;
    double value;

    [[nodiscard]] double of(const OKLCH& base) const
    {
        switch (kind) {
        case Lightness::exactly:
            return value;
        case Lightness::atMost:
            return std::min(base.lightness, value);
        case Lightness::atLeast:
            return std::max(base.lightness, value);
        }
        return value;
    }
};

/// The base's chroma times the factor, held between floor and ceiling.
struct ChromaRule {
    double factor;
    double floor;
    double ceiling;

    [[nodiscard]] double of(const OKLCH& base) const
    {
        return std::max(std::min(factor * base.chroma, ceiling), floor);
    }
};

enum class Hue { base, fixed };

/// Degrees from the base's hue, or on the hue circle itself.
struct HueRule {
    Hue kind;
    double degrees;

    [[nodiscard]] double of(const OKLCH& base) const
    {
        return kind == Hue::base ? base.hue + degrees : degrees;
    }
};

/// What is done with the colour that the three rules make.
enum class Finish { none, contrastWithBackground, readableFill, inkOnPrimary };

struct ThemeRole {
    std::string_view id;
    std::string_view name;
    LightnessRule light;
    LightnessRule dark;
    ChromaRule chroma;
    HueRule hue;
    Finish finish;
};

using enum Lightness;

constexpr double noCeiling = std::numeric_limits<double>::infinity();
constexpr double textMinimum = 7.0;
constexpr std::size_t backgroundIndex = 0;
constexpr std::size_t primaryIndex = 3;

// clang-format off
constexpr std::array roles {
    //          id            name          light              dark               chroma: factor floor ceiling  hue                 finish
    ThemeRole { "background", "Background", {exactly, 0.98},  {exactly, 0.115}, {0.07, 0,    0.014},     {Hue::base, 0},    Finish::none },
    ThemeRole { "surface",    "Surface",    {exactly, 0.935}, {exactly, 0.18},  {0.11, 0,    0.02},      {Hue::base, 0},    Finish::none },
    ThemeRole { "text",       "Text",       {exactly, 0.19},  {exactly, 0.95},  {0.18, 0,    0.035},     {Hue::base, 0},    Finish::contrastWithBackground },
    ThemeRole { "primary",    "Primary",    {atMost,  0.58},  {atLeast, 0.7},   {1.0,  0.1,  noCeiling}, {Hue::base, 0},    Finish::readableFill },
    ThemeRole { "on-primary", "On primary", {},               {},               {},                      {},                Finish::inkOnPrimary },
    ThemeRole { "secondary",  "Secondary",  {exactly, 0.52},  {exactly, 0.72},  {0.8,  0.08, noCeiling}, {Hue::base, 60},   Finish::readableFill },
    ThemeRole { "accent",     "Accent",     {exactly, 0.5},   {exactly, 0.74},  {0.9,  0.09, noCeiling}, {Hue::base, 180},  Finish::readableFill },
    ThemeRole { "success",    "Success",    {exactly, 0.48},  {exactly, 0.72},  {1.0,  0.11, 0.18},      {Hue::fixed, 145}, Finish::readableFill },
    ThemeRole { "warning",    "Warning",    {exactly, 0.47},  {exactly, 0.78},  {1.0,  0.11, 0.18},      {Hue::fixed, 80},  Finish::readableFill },
    ThemeRole { "error",      "Error",      {exactly, 0.48},  {exactly, 0.72},  {1.0,  0.11, 0.18},      {Hue::fixed, 28},  Finish::readableFill },
};
// clang-format on
static_assert(roles[backgroundIndex].id == "background" && roles[primaryIndex].id == "primary");

RGBAColor colorOf(const ThemeRole& role, const OKLCH& base, Appearance appearance)
{
    const auto& lightness = appearance == Appearance::light ? role.light : role.dark;
    return OKLCH(lightness.of(base), role.chroma.of(base), role.hue.of(base)).toSRGB(/*alpha=*/1);
}

NamedColor finishedRole(const ThemeRole& role, const OKLCH& base, const ThemePalette& soFar)
{
    NamedColor entry { std::string(role.id), std::string(role.name), {}, std::nullopt };
    switch (role.finish) {
    case Finish::none:
        entry.color = colorOf(role, base, soFar.appearance);
        break;
    case Finish::contrastWithBackground: {
        const auto& background = soFar.colors[backgroundIndex].color;
        entry.color
            = ensureContrast(colorOf(role, base, soFar.appearance), background, textMinimum);
        entry.detail = contrastText(contrastRatio(entry.color, background));
        break;
    }
    case Finish::readableFill:
        entry.color = ensureReadableFill(colorOf(role, base, soFar.appearance));
        break;
    case Finish::inkOnPrimary: {
        const auto& primary = soFar.colors[primaryIndex].color;
        entry.color = readableInkOn(primary);
        entry.detail = contrastText(contrastRatio(entry.color, primary));
        break;
    }
    }
    return entry;
}

} // namespace

ThemePalette PaletteGenerator::theme(const OKLCH& base, Appearance appearance) const
{
    ThemePalette theme { appearance, {} };
    theme.colors.reserve(roles.size());
    for (const auto& role : roles)
        theme.colors.push_back(finishedRole(role, base, theme));
    return theme;
}

} // namespace tintwell
