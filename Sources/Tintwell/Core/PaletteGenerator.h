// From one source colour to its name, sections and contrast-repaired themes.
#pragma once

#include "ColorNamer.h"
#include "Contrast.h"
#include "GeneratedPalette.h"
#include "OKLCH.h"

namespace tintwell {

/// Derives the whole colour system from one source. Stateless and pure: the same source always
/// gives the same palette, and every source gives a complete one. Generated colours are opaque.
struct PaletteGenerator {
    /// Five harmony sections, a ramp, a tonal scale and both themes; `source` is kept as it is.
    [[nodiscard]] GeneratedPalette generate(const RGBAColor& source) const;

    /// The ten semantic roles for one appearance.
    [[nodiscard]] ThemePalette theme(const OKLCH& base, Appearance appearance) const;
};

} // namespace tintwell
