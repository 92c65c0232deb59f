#include "NumberText.h"

#include <gtest/gtest.h>

#include <limits>

namespace tintwell {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(NumberText, RoundsHalvesAwayFromZeroAndBoundsTheRest)
{
    EXPECT_EQ(roundedHalfAway(127.5), 128);
    EXPECT_EQ(roundedHalfAway(-0.5), -1);
    EXPECT_EQ(roundedHalfAway(0.49999999999999994), 0);
    EXPECT_EQ(roundedHalfAway(notANumber), 0);
    EXPECT_EQ(roundedHalfAway(infinity), roundedHalfAway(1e300));
    EXPECT_LT(roundedHalfAway(-infinity), -1'000'000);
}

TEST(NumberText, WritesHueOffsetsWithTheirSign)
{
    EXPECT_EQ(signedDegrees(-30),
        "\xE2\x88\x92"
        "30\xC2\xB0");
    EXPECT_EQ(signedDegrees(180), "+180°");
    EXPECT_EQ(signedDegrees(-0.0), "+0°");
    EXPECT_EQ(signedDegrees(-0.4), "−0°");
    EXPECT_EQ(signedDegrees(22.5), "+23°");
    EXPECT_EQ(signedDegrees(notANumber), "+0°");
}

TEST(NumberText, WritesContrastWithOneDecimal)
{
    EXPECT_EQ(contrastText(7.04), "7.0:1 contrast");
    EXPECT_EQ(contrastText(4.96), "5.0:1 contrast");
    EXPECT_EQ(contrastText(21), "21.0:1 contrast");
    // Nothing sensible, but no failure either.
    for (const double ratio : { notANumber, -notANumber, infinity, 1e300 })
        EXPECT_TRUE(contrastText(ratio).ends_with(":1 contrast"));
}

} // namespace
} // namespace tintwell
