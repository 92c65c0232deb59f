// A palette as the source of style sheets.
#pragma once

#include "PaletteExport.h"

#include <string>

namespace tintwell {

/// All colours of a palette as CSS custom properties, the same ones for every source.
///
/// An id such as "tone.500" becomes `--tintwell-tone-500`. Theme roles lose their prefix and follow
/// the reader's preference or a `data-theme` attribute: `--tintwell-background` is light by
/// default.
[[nodiscard]] std::string cssText(const GeneratedPalette& palette, ColorNotation notation);

/// A theme for version 4 of Tailwind CSS, to be imported after it: the tones are the colours
/// "brand-50" to "brand-950", the roles colours of their own names, which change with the theme.
[[nodiscard]] std::string tailwindText(const GeneratedPalette& palette, ColorNotation notation);

/// All colours as the Sass map `$tintwell`, by their ids: "tone-500", "light-primary".
[[nodiscard]] std::string scssText(const GeneratedPalette& palette, ColorNotation notation);

} // namespace tintwell
