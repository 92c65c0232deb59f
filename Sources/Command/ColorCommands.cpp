#include "ColorCommands.h"

#include "JsonOutput.h"
#include "NumberText.h"
#include "PaletteExport.h"
#include "PaletteGenerator.h"
#include "PaletteLayout.h"

#include <array>
#include <cmath>
#include <string_view>

namespace tintwell {

namespace {

struct Level {
    std::string_view name;
    std::string_view use;
    double minimum;
};

// clang-format off
    /// Success criteria 1.4.3, 1.4.6 and 1.4.11 of WCAG 2.
    constexpr std::array levels {
        Level { "AA",  "normal text",   4.5 },
        Level { "AA",  "large text",    3.0 },
        Level { "AA",  "UI components", 3.0 },
        Level { "AAA", "normal text",   7.0 },
        Level { "AAA", "large text",    4.5 },
    };
// clang-format on

} // namespace

platform::Result<std::string> paletteText(
    const RGBAColor& source, PaletteFormat format, const Terminal& terminal)
{
    const auto derived = derivedPalette(source);
    if (!derived)
        return derived.error();
    const auto& palette = derived.value();
    switch (format) {
    case PaletteFormat::layout:
        return paletteLayout(palette, terminal);
    case PaletteFormat::json:
        return jsonDocument(palette, JsonStyle::pretty);
    case PaletteFormat::jsonLines:
        break;
    }
    return jsonDocument(palette, JsonStyle::compact);
}

std::string nameText(const RGBAColor& color)
{
    return ColorNamer().name(OKLCH(color)) + "\n";
}

std::string contrastLevels(double ratio)
{
    // Cut, not rounded: the number must not reach what the ratio does not.
    auto text = fixedPoint(std::floor(ratio * 100) / 100, 2) + ":1\n";
    for (const std::string_view name : { "AA", "AAA" }) {
        std::string uses;
        for (const auto& level : levels)
            if (level.name == name && ratio >= level.minimum)
                uses += (uses.empty() ? "" : ", ") + std::string(level.use);
        text += std::string(name) + (name.size() == 2 ? "   " : "  ")
            + (uses.empty() ? "not reached" : uses) + "\n";
    }
    return text;
}

std::string contrastReport(
    const RGBAColor& foreground, const RGBAColor& background, const Terminal& terminal)
{
    auto report = contrastLevels(contrastRatio(foreground, background));
    if (!terminal.hasColors())
        return report;
    const ColorNamer namer;
    const auto sample
        = "   " + namer.name(OKLCH(foreground)) + " on " + namer.name(OKLCH(background)) + "   ";
    const Paint air { .fill = background };
    const auto blank = painted(std::string(sample.size(), ' '), air) + "\n";
    return blank + painted(sample, { .ink = foreground, .fill = background, .bold = true }) + "\n"
        + blank + report;
}

} // namespace tintwell
