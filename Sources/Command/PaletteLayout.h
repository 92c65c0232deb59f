// A palette laid out to be looked at: coloured blocks on a terminal, aligned text elsewhere.
#pragma once

#include "PaletteModels.h"
#include "Terminal.h"

#include <string>
#include <vector>

namespace tintwell {

/// Narrower terminals get lines of this many cells.
inline constexpr int narrowestLayout = 40;

/// The source, every section and both themes, as `terminal` can show them; ends in a line feed.
[[nodiscard]] std::string paletteLayout(const GeneratedPalette& palette, const Terminal& terminal);

/// A line of `fill`, `width` cells wide, with an edge if the fill could be the terminal's own
/// background: nearly black or nearly white.
[[nodiscard]] std::string swatch(const RGBAColor& fill, int width);

/// The first 12 of `colors` as one band of equal blocks, `columns` cells wide at most and never
/// less than one a colour.
[[nodiscard]] std::string colorStrip(const std::vector<NamedColor>& colors, int columns);

} // namespace tintwell
