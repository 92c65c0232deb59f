#include "PaletteGenerator.h"

#include "NumberText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tintwell {

namespace {

struct HarmonyMember {
    std::string_view name;
    double hueOffsetDegrees;
};

struct Harmony {
    std::string_view id;
    std::string_view title;
    std::string_view subtitle;
    std::array<HarmonyMember, 4> members;
    std::size_t count;
};

/// A step of a ramp along the source's hue. Chroma is the source's times the factor.
struct RampStep {
    std::string_view name;
    std::optional<double> lightness; ///< Nothing is the source's own.
    double chromaFactor;
};

struct ToneStep {
    int step;
    double lightness;
    double chromaFactor;
};

// clang-format off
constexpr std::array harmonies {
    Harmony { "complementary", "Complementary", "Direct contrast across the hue wheel",
        {{ { "Base", 0 }, { "Complement", 180 } }}, 2 },
    Harmony { "analogous", "Analogous", "Low-friction neighboring hues",
        {{ { "Left", -30 }, { "Base", 0 }, { "Right", 30 } }}, 3 },
    Harmony { "split-complementary", "Split complementary", "Contrast with a more forgiving balance",
        {{ { "Base", 0 }, { "Split left", 150 }, { "Split right", 210 } }}, 3 },
    Harmony { "triadic", "Triadic", "Three evenly spaced accents",
        {{ { "Base", 0 }, { "Triad two", 120 }, { "Triad three", 240 } }}, 3 },
    Harmony { "tetradic", "Tetradic", "A rectangular four-color system",
        {{ { "Base", 0 }, { "Tetrad two", 60 }, { "Tetrad three", 180 }, { "Tetrad four", 240 } }}, 4 },
};

constexpr double monochromaticChromaFloor = 0.018;
constexpr std::array monochromaticSteps {
    RampStep { "Air",  0.94,         0.22 },
    RampStep { "Mist", 0.82,         0.48 },
    RampStep { "Base", std::nullopt, 1.0 },
    RampStep { "Deep", 0.38,         0.9 },
    RampStep { "Ink",  0.22,         0.66 },
};

constexpr double tonalChromaFloor = 0.012;
constexpr std::array toneSteps {
    ToneStep { 50,  0.97, 0.10 },
    ToneStep { 100, 0.92, 0.22 },
    ToneStep { 200, 0.85, 0.38 },
    ToneStep { 300, 0.77, 0.56 },
    ToneStep { 400, 0.68, 0.78 },
    ToneStep { 500, 0.59, 1.00 },
    ToneStep { 600, 0.50, 0.98 },
    ToneStep { 700, 0.41, 0.88 },
    ToneStep { 800, 0.31, 0.72 },
    ToneStep { 900, 0.22, 0.56 },
    ToneStep { 950, 0.15, 0.42 },
};
// clang-format on

PaletteSection sectionOf(
    std::string_view id, std::string_view title, std::string_view subtitle, std::size_t count)
{
    PaletteSection section { std::string(id), std::string(title), std::string(subtitle), {} };
    section.colors.reserve(count);
    return section;
}

/// "triadic.2": the id of the next member.
std::string nextMemberId(const PaletteSection& section)
{
    return section.id + '.' + static_cast<char>('0' + section.colors.size());
}

PaletteSection harmonySection(const OKLCH& base, const Harmony& harmony)
{
    auto section = sectionOf(harmony.id, harmony.title, harmony.subtitle, harmony.count);
    for (std::size_t i = 0; i < harmony.count; ++i) {
        const auto& [name, offset] = harmony.members[i];
        const OKLCH color(base.lightness, base.chroma, base.hue + offset);
        section.colors.push_back({ nextMemberId(section), std::string(name),
            color.toSRGB(/*alpha=*/1), offset == 0 ? "Source" : signedDegrees(offset) });
    }
    return section;
}

PaletteSection monochromaticSection(const OKLCH& base)
{
    auto section = sectionOf("monochromatic", "Monochromatic",
        "One hue, shaped through perceptual lightness", monochromaticSteps.size());
    for (const auto& step : monochromaticSteps) {
        const double lightness = step.lightness.value_or(base.lightness);
        const double chroma = std::max(base.chroma * step.chromaFactor, monochromaticChromaFloor);
        section.colors.push_back({ nextMemberId(section), std::string(step.name),
            OKLCH(lightness, chroma, base.hue).toSRGB(/*alpha=*/1),
            numbered("L ", roundedHalfAway(lightness * 100)) });
    }
    return section;
}

PaletteSection tonalSection(const OKLCH& base)
{
    auto section = sectionOf(
        "tonal", "Tonal scale", "Interface-ready steps from 50 through 950", toneSteps.size());
    for (const auto& [step, lightness, chromaFactor] : toneSteps) {
        const double chroma = std::max(base.chroma * chromaFactor, tonalChromaFloor);
        section.colors.push_back({ numbered("tone.", step), numbered("", step),
            OKLCH(lightness, chroma, base.hue).toSRGB(/*alpha=*/1), numbered("Tone ", step) });
    }
    return section;
}

} // namespace

GeneratedPalette PaletteGenerator::generate(const RGBAColor& source) const
{
    const OKLCH base(source);
    GeneratedPalette palette;
    palette.source = source;
    palette.sourceName = ColorNamer().name(base);
    palette.harmonySections.reserve(harmonies.size());
    for (const auto& harmony : harmonies)
        palette.harmonySections.push_back(harmonySection(base, harmony));
    palette.monochromatic = monochromaticSection(base);
    palette.tonal = tonalSection(base);
    palette.lightTheme = theme(base, Appearance::light);
    palette.darkTheme = theme(base, Appearance::dark);
    return palette;
}

} // namespace tintwell
