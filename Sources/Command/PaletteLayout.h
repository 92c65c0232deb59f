// A palette laid out to be looked at: coloured blocks on a terminal, aligned text elsewhere.
#pragma once

#include "PaletteModels.h"
#include "Terminal.h"

#include <string>
#include <vector>

namespace tintwell {

/// The source, every section and both themes, as `terminal` can show them; ends in a line feed.
[[nodiscard]] std::string paletteLayout(const GeneratedPalette& palette, const Terminal& terminal);

/// The first 12 of `colors` as one band of equal blocks, `columns` cells wide at most and never
/// less than one a colour.
[[nodiscard]] std::string colorStrip(const std::vector<NamedColor>& colors, int columns);

} // namespace tintwell
