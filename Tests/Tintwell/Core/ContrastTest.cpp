#include "Contrast.h"

#include "LiteralRules.h"
#include "OKLCH.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tintwell {
namespace {

const RGBAColor white(1, 1, 1, 1);
const RGBAColor black(0, 0, 0, 1);

RGBAColor gray(double component, double alpha = 1)
{
    return { component, component, component, alpha };
}

literal::RGB plain(const RGBAColor& color)
{
    return { color.red, color.green, color.blue };
}

RGBAColor opaque(const literal::RGB& color)
{
    return { color.red, color.green, color.blue, 1 };
}

/// A colour of exactly that luminance: green nearly makes it, red's straight part the rest.
RGBAColor withLuminance(double target)
{
    double low = 0;
    double high = 1;
    while (std::nextafter(low, high) < high) {
        const double middle = (low + high) / 2;
        (RGBAColor(0, middle, 0, 1).relativeLuminance() < target ? low : high) = middle;
    }
    const double missing = target - RGBAColor(0, low, 0, 1).relativeLuminance();
    const RGBAColor color(missing / 0.2126 * 12.92, low, 0, 1);
    EXPECT_EQ(color.relativeLuminance(), target);
    return color;
}

double bestContrast(const RGBAColor& fill)
{
    return contrastRatio(fill, readableInkOn(fill));
}

TEST(Contrast, RatioIsSymmetricAndIgnoresAlpha)
{
    EXPECT_EQ(contrastRatio(white, black), 21);
    EXPECT_EQ(contrastRatio(black, gray(1, 0.5)), 21);
    EXPECT_EQ(contrastRatio(white, white), 1);
}

TEST(Contrast, TheInkThatStandsOutMoreIsReadable)
{
    EXPECT_EQ(readableInkOn(white), darkInk);
    EXPECT_EQ(readableInkOn(black), lightInk);
    // 2:1 either way.
    ASSERT_EQ(contrastRatio(0.45, 0.2), contrastRatio(0.45, 0.95));
    EXPECT_EQ(readableInk(0.45, 0.2, 0.95), Ink::dark);
    EXPECT_EQ(readableInk(std::nextafter(0.45, 0), 0.2, 0.95), Ink::light);
}

TEST(EnsureContrast, LeavesAColorThatPassesUntouched)
{
    const auto faint = gray(0.2, 0.3);
    EXPECT_EQ(ensureContrast(faint, white, contrastRatio(faint, white)), faint);
    const auto stored = RGBAColor::stored(-4, 7, 0, 9);
    EXPECT_EQ(ensureContrast(stored, black, 1), stored);
}

TEST(EnsureContrast, EndsInWhiteOrBlackWhenNothingPasses)
{
    EXPECT_EQ(ensureContrast(gray(0.5, 0.4), gray(0.2), 22), white);
    EXPECT_EQ(ensureContrast(gray(0.5, 0.4), gray(0.8), 22), black);
    EXPECT_EQ(ensureContrast(gray(0.5), withLuminance(0.35), 22), black);
    EXPECT_EQ(ensureContrast(gray(0.5), withLuminance(std::nextafter(0.35, 0)), 22), white);
}

TEST(EnsureContrast, TakesAtMostThirtyTwoSteps)
{
    const auto afterSteps = [](int count) { return OKLCH(1 - count * 0.025, 0, 0).toSRGB(1); };
    const double reached = contrastRatio(afterSteps(32), white) - 0.01;
    EXPECT_NEAR(ensureContrast(white, white, reached).red, afterSteps(32).red, 1e-6);
    EXPECT_EQ(ensureContrast(white, white, contrastRatio(afterSteps(33), white) - 0.01), black);
}

TEST(EnsureReadableFill, TakesAtMostTwentySteps)
{
    const auto afterSteps = [](int count) { return OKLCH(0.75 - count * 0.025, 0, 0).toSRGB(0.5); };
    const auto fill = afterSteps(0);
    const double reached = bestContrast(afterSteps(20)) - 0.01;
    EXPECT_NEAR(ensureReadableFill(fill, reached).red, afterSteps(20).red, 1e-6);
    EXPECT_EQ(ensureReadableFill(fill, reached).alpha, 1);
    EXPECT_EQ(ensureReadableFill(fill, bestContrast(afterSteps(21)) - 0.01), fill);
    EXPECT_EQ(ensureReadableFill(fill), fill);
}

TEST(EnsureReadableFill, DarkensOnlyAboveTheMiddle)
{
    const auto luminanceAfter = [](double luminance) {
        return ensureReadableFill(withLuminance(luminance)).relativeLuminance();
    };
    EXPECT_GT(luminanceAfter(0.18), 0.1873);
    EXPECT_LT(luminanceAfter(std::nextafter(0.18, 1)), 0.1760);
}

TEST(EnsureReadableFill, RepairsEveryGrayInTheOneBandThatNeedsIt)
{
    for (int i = 0; i <= 10'000; ++i) {
        const auto fill = gray(i / 10'000.0);
        const auto repaired = ensureReadableFill(fill);
        const double luminance = fill.relativeLuminance();
        EXPECT_GE(bestContrast(fill), 4.391);
        EXPECT_GE(bestContrast(repaired), 4.5);
        EXPECT_EQ(repaired != fill, luminance > 0.1760 && luminance < 0.1873) << luminance;
    }
}

TEST(RepairWalks, AgreeWithTheLiteralRulesToTheLastBit)
{
    const auto backgrounds
        = { black, gray(0.1), gray(0.45), gray(0.7), RGBAColor(0.9, 0.7, 0.1, 1) };
    constexpr int perChannel = 9;
    for (int i = 0; i < perChannel * perChannel * perChannel; ++i) {
        const auto color = opaque(literal::gridColor(i, perChannel));
        for (const double minimum : { 4.5, 6.0, 12.0 }) {
            EXPECT_EQ(ensureReadableFill(color, minimum),
                opaque(literal::ensureReadableFill(plain(color), minimum)))
                << color.hex() << ' ' << minimum;
            for (const auto& background : backgrounds) {
                EXPECT_EQ(ensureContrast(color, background, minimum),
                    opaque(literal::ensureContrast(plain(color), plain(background), minimum)))
                    << color.hex() << ' ' << background.hex() << ' ' << minimum;
            }
        }
    }
}

TEST(RepairWalks, EndForColorsOffTheRoad)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double a : { -0.05, -40.0, 1e100, -1e300, infinity, -infinity, std::nan("") }) {
        const auto color = RGBAColor::stored(a, 0.46, a, 0.5);
        for (const auto& repaired : { ensureContrast(color, white, 7),
                 ensureContrast(gray(0.5), color, 7), ensureReadableFill(color) })
            EXPECT_EQ(repaired.hex().size(), 7U) << a;
    }
    const auto nowhere = ensureReadableFill(RGBAColor::stored(std::nan(""), 0, 0, 0.5));
    EXPECT_TRUE(std::isnan(nowhere.red));
    EXPECT_EQ(nowhere.alpha, 0.5);
}

} // namespace
} // namespace tintwell
