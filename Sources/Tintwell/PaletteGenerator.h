// From one source colour to its name, sections and contrast-repaired themes.
#pragma once

#include "OKLCH.h"
#include "PaletteModels.h"

#include <string>

namespace tintwell {

inline const RGBAColor darkInk { 0.035, 0.035, 0.04, 1.0 };
inline const RGBAColor lightInk { 0.985, 0.985, 0.99, 1.0 };

/// WCAG contrast ratio of two colours, 1…21; alpha takes no part.
[[nodiscard]] double contrastRatio(const RGBAColor& a, const RGBAColor& b);

/// `darkInk` or `lightInk`, whichever stands out more from `fill`; a tie gives `darkInk`.
[[nodiscard]] RGBAColor readableInkOn(const RGBAColor& fill);

/// Gives colours short English names.
struct ColorNamer {
    [[nodiscard]] std::string name(const OKLCH& color) const;
};

/// Derives the whole colour system from one source. Stateless and pure.
struct PaletteGenerator {
    [[nodiscard]] GeneratedPalette generate(const RGBAColor& source) const;
    [[nodiscard]] ThemePalette theme(const OKLCH& base, Appearance appearance) const;
};

/// Walks the lightness of `foreground` until it stands out from `background`.
///
/// `minimum` is a WCAG ratio, 1…21. Returns `foreground` untouched, alpha included, if it already
/// passes; else the first opaque candidate of at most 32 steps of 0.025; else pure white or black.
[[nodiscard]] RGBAColor ensureContrast(
    const RGBAColor& foreground, const RGBAColor& background, double minimum);

/// Walks the lightness of `fill` until either ink reads on it at 4.5:1; the fill itself after 20
/// steps in vain.
[[nodiscard]] RGBAColor ensureReadableFill(const RGBAColor& fill);

} // namespace tintwell
