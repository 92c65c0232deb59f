// WCAG contrast: how it is measured, the two inks, and the walks that repair it.
#pragma once

#include "RGBAColor.h"

namespace tintwell {

inline constexpr RGBAColor darkInk { 0.035, 0.035, 0.04, 1.0 };
inline constexpr RGBAColor lightInk { 0.985, 0.985, 0.99, 1.0 };

/// WCAG contrast ratio of two colours, 1…21; alpha takes no part.
[[nodiscard]] double contrastRatio(const RGBAColor& a, const RGBAColor& b);

/// The same from relative luminances.
[[nodiscard]] double contrastRatio(double luminanceA, double luminanceB);

enum class Ink { dark, light };

/// The ink that stands out more from a fill, all three given by their relative luminance; a tie
/// gives the dark one.
[[nodiscard]] Ink readableInk(double fill, double dark, double light);

/// `darkInk` or `lightInk`, whichever stands out more from `fill`; a tie gives `darkInk`.
[[nodiscard]] RGBAColor readableInkOn(const RGBAColor& fill);

/// Walks the lightness of `foreground` until it stands out from `background`.
///
/// `minimum` is a WCAG ratio, 1…21. Returns `foreground` untouched, alpha included, if it already
/// passes; else the first opaque candidate of at most 32 steps of 0.025; else pure white or black.
[[nodiscard]] RGBAColor ensureContrast(
    const RGBAColor& foreground, const RGBAColor& background, double minimum);

/// What WCAG asks of normal text.
inline constexpr double readableFillMinimum = 4.5;

/// Walks the lightness of `fill` until the better ink reads on it at `minimum`, a WCAG ratio;
/// returns the fill itself if it already does, or after 20 steps of 0.025 in vain.
[[nodiscard]] RGBAColor ensureReadableFill(
    const RGBAColor& fill, double minimum = readableFillMinimum);

} // namespace tintwell
