// The perceptual colour space in which every palette rule is stated: polar Oklab.
#pragma once

#include "RGBAColor.h"

namespace tintwell {

/// Perceptual lightness 0…1, chroma from 0 (greys; sRGB stays below about 0.33) and hue in degrees,
/// 0 up to 360.
struct OKLCH {
    double lightness = 0;
    double chroma = 0;
    double hue = 0;

    OKLCH() = default;

    /// Clamps the lightness, floors the chroma at 0 (also what is not a number) and wraps the hue
    /// into 0…360.
    OKLCH(double lightnessValue, double chromaValue, double hueDegrees);

    /// The coordinates of a colour; its alpha is ignored.
    explicit OKLCH(const RGBAColor& color);

    /// The colour inside sRGB: chroma is bisected down until it fits, lightness and hue stay.
    [[nodiscard]] RGBAColor toSRGB(double alpha) const;
};

} // namespace tintwell
