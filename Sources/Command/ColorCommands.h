// What the command line says about colours: their palettes, names and contrast.
#pragma once

#include "Report.h"
#include "Terminal.h"

#include <string>

namespace tintwell {

enum class PaletteFormat { layout, json, jsonLines };

/// The palette of `source`: laid out for `terminal`, or as JSON in many lines or one. The error
/// tells of a source so far off that its colours are no numbers.
[[nodiscard]] platform::Result<std::string> paletteText(
    const RGBAColor& source, PaletteFormat format, const Terminal& terminal);

/// The English name of a colour.
[[nodiscard]] std::string nameText(const RGBAColor& color);

/// The contrast ratio cut to two decimals, then the levels of WCAG 2 that it reaches.
[[nodiscard]] std::string contrastLevels(double ratio);

/// `contrastLevels` of two colours, on a terminal below a sample of the one on the other.
[[nodiscard]] std::string contrastReport(
    const RGBAColor& foreground, const RGBAColor& background, const Terminal& terminal);

} // namespace tintwell
