// The sRGB transfer curves, between gamma-encoded components and linear light (IEC 61966-2-1).
#pragma once

#include <cmath>

namespace tintwell {

/// Linear light of a gamma-encoded component; defined for every double.
[[nodiscard]] inline double decodeSRGB(double encoded)
{
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

/// The gamma-encoded component of linear light; defined for every double.
[[nodiscard]] inline double encodeSRGB(double linear)
{
    return linear <= 0.0031308 ? 12.92 * linear
                               : 1.055 * std::pow(linear, 0.4166666666666667) - 0.055;
}

} // namespace tintwell
