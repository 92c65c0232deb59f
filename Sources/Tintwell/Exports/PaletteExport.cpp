#include "PaletteExport.h"

#include "DesignTokens.h"
#include "GimpPalette.h"
#include "MacColorIntegration.h"
#include "PaletteGenerator.h"
#include "PaletteModelsJson.h"
#include "StyleSheets.h"
#include "SwatchExchange.h"
#include "SwatchSheet.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tintwell {

namespace {

std::string componentText(double component)
{
    std::array<char, 32> digits {};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), component);
    return { digits.data(), end.ptr };
}

platform::Result<std::string> jsonText(const GeneratedPalette& palette)
{
    std::string text;
    if (const auto written = appendJson(text, palette.exportColors(), JsonStyle::pretty); !written)
        return written.error();
    return text + "\n";
}

std::string gimpText(const GeneratedPalette& palette)
{
    platform::ColorList list(palette.sourceName);
    fillColorList(list, palette.exportColors());
    return platform::gimpPaletteText(list);
}

} // namespace

const ExportFormatTraits& traitsOf(ExportFormat format)
{
    return *std::find_if(exportFormats.begin(), exportFormats.end(),
        [format](const auto& traits) { return traits.format == format; });
}

std::optional<ExportFormat> exportFormatOf(const std::filesystem::path& file)
{
    std::string name = file.filename().string();
    std::transform(name.begin(), name.end(), name.begin(),
        [](char letter) { return letter >= 'A' && letter <= 'Z' ? char(letter + 32) : letter; });
    const ExportFormatTraits* longest = nullptr;
    for (const auto& traits : exportFormats)
        if (name.ends_with(traits.ending)
            && (!longest || traits.ending.size() > longest->ending.size()))
            longest = &traits;
    return longest ? std::optional(longest->format) : std::nullopt;
}

platform::Result<GeneratedPalette> derivedPalette(const RGBAColor& source)
{
    const OKLCH coordinates(source);
    if (!std::isfinite(coordinates.lightness) || !std::isfinite(coordinates.chroma)
        || !std::isfinite(coordinates.hue))
        return platform::Error { "No palette follows from a source as far outside 0 to 1 as red "
            + componentText(source.red) + ", green " + componentText(source.green) + ", blue "
            + componentText(source.blue) };
    return PaletteGenerator().generate(source);
}

platform::Result<std::string> exported(
    const GeneratedPalette& palette, ExportFormat format, ColorNotation notation)
{
    switch (format) {
    case ExportFormat::json:
        return jsonText(palette);
    case ExportFormat::gpl:
        return gimpText(palette);
    case ExportFormat::css:
        return cssText(palette, notation);
    case ExportFormat::tailwind:
        return tailwindText(palette, notation);
    case ExportFormat::scss:
        return scssText(palette, notation);
    case ExportFormat::tokens:
        return designTokensText(palette);
    case ExportFormat::ase:
        return swatchExchangeBytes(palette.exportColors());
    case ExportFormat::svg:
        return svgText(swatchSheet(palette));
    case ExportFormat::png:
        break;
    }
    return pngBytes(swatchSheet(palette));
}

} // namespace tintwell
