#include "NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tintwell {

std::int64_t roundedHalfAway(double value)
{
    constexpr double limit = 9007199254740992.0;
    if (std::isnan(value))
        return 0;
    return static_cast<std::int64_t>(std::round(std::clamp(value, -limit, limit)));
}

std::string signedDegrees(double degrees)
{
    return numbered(degrees < 0 ? "\u2212" : "+", roundedHalfAway(std::abs(degrees))) + "\u00B0";
}

std::string fixedPoint(double value, int decimals)
{
    // The largest double has 309 digits before the point.
    std::array<char, 352> digits {};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
        std::chars_format::fixed, std::clamp(decimals, 0, 32));
    return { digits.data(), end.ptr };
}

std::string contrastText(double ratio)
{
    // The sign of what is not a number says nothing; ratios of real colours have none.
    auto text = fixedPoint(std::abs(ratio), 1);
    text += ":1 contrast";
    return text;
}

std::string numbered(std::string_view prefix, std::int64_t number)
{
    return std::string(prefix) + std::to_string(number);
}

} // namespace tintwell
