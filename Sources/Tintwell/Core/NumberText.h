// Numbers as the short texts under the swatches, the same in every locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tintwell {

/// The nearest integer, halves away from zero. Beyond ±2^53 the nearer of these bounds; 0 for what
/// is not a number.
[[nodiscard]] std::int64_t roundedHalfAway(double value);

/// A hue offset: "−30°" (with a minus sign, not a hyphen), "+180°", "+0°".
[[nodiscard]] std::string signedDegrees(double degrees);

/// Plain decimal digits with exactly that many (0…32) behind a point.
[[nodiscard]] std::string fixedPoint(double value, int decimals);

/// A WCAG ratio with one decimal: "7.0:1 contrast".
[[nodiscard]] std::string contrastText(double ratio);

/// `prefix` followed by the plain decimal number.
[[nodiscard]] std::string numbered(std::string_view prefix, std::int64_t number);

} // namespace tintwell
