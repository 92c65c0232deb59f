#include "ColorCommands.h"

#include "CssExport.h"
#include "GimpPalette.h"
#include "JsonDocument.h"
#include "MacColorIntegration.h"
#include "NumberText.h"
#include "PaletteGenerator.h"
#include "PaletteLayout.h"

#include <array>
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
    const auto palette = PaletteGenerator().generate(source);
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

platform::Result<std::string> exportText(const RGBAColor& source, ExportFormat format)
{
    const auto palette = PaletteGenerator().generate(source);
    switch (format) {
    case ExportFormat::json:
        return jsonDocument(palette.exportColors(), JsonStyle::pretty);
    case ExportFormat::gimp: {
        platform::ColorList list(palette.sourceName);
        fillColorList(list, palette.exportColors());
        return platform::gimpPaletteText(list);
    }
    case ExportFormat::css:
        break;
    }
    return cssProperties(palette);
}

std::string nameText(const RGBAColor& color)
{
    return ColorNamer().name(OKLCH(color)) + "\n";
}

std::string contrastLevels(double ratio)
{
    auto text = fixedPoint(ratio, 2) + ":1\n";
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
    if (!terminal.colors)
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
