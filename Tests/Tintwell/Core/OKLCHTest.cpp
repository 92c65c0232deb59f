#include "OKLCH.h"

#include "LiteralRules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tintwell {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

RGBAColor parsed(const char* hex)
{
    return RGBAColor::fromHex(hex).value();
}

TEST(OKLCH, ConstructionNormalises)
{
    struct Row {
        double lightness, chroma, hue;
        OKLCH stored;
    };
    const auto raw = [](double l, double c, double h) {
        OKLCH color;
        color.lightness = l;
        color.chroma = c;
        color.hue = h;
        return color;
    };
    for (const auto& row : { Row { 0.5, 0.1, -30, raw(0.5, 0.1, 330) },
             Row { 1.2, -0.1, 370, raw(1, 0, 10) }, Row { -1, 0.1, 720, raw(0, 0.1, 0) },
             Row { infinity, infinity, 359.5, raw(1, infinity, 359.5) },
             Row { -infinity, notANumber, -750, raw(0, 0, 330) },
             Row { 0.5, 0, -1e-20, raw(0.5, 0, 360) } }) {
        const OKLCH color(row.lightness, row.chroma, row.hue);
        EXPECT_EQ(color.lightness, row.stored.lightness) << row.lightness;
        EXPECT_EQ(color.chroma, row.stored.chroma) << row.chroma;
        EXPECT_EQ(color.hue, row.stored.hue) << row.hue;
    }
    EXPECT_TRUE(std::isnan(OKLCH(0.5, 0, infinity).hue));
    EXPECT_TRUE(std::isnan(OKLCH(notANumber, 0, 0).lightness));
}

TEST(OKLCH, ReadsColors)
{
    struct Row {
        const char* hex;
        double lightness, chroma, hue, hueTolerance;
    };
    for (const auto& row : { Row { "#6E56CF", 0.54168, 0.17903, 288.03, 5e-3 },
             Row { "#FF0000", 0.62796, 0.25768, 29.234, 5e-4 }, Row { "#FFFFFF", 1, 4e-8, 0, 0 },
             Row { "#000000", 0, 0, 0, 0 } }) {
        const OKLCH color(parsed(row.hex));
        EXPECT_NEAR(color.lightness, row.lightness, 5e-6) << row.hex;
        EXPECT_NEAR(color.chroma, row.chroma, 5e-6) << row.hex;
        EXPECT_NEAR(color.hue, row.hue, row.hueTolerance) << row.hex;
    }
    // Too little for a hue, but not set to nothing.
    EXPECT_GT(OKLCH(parsed("#FFFFFF")).chroma, 1e-8);
}

TEST(OKLCH, FitsIntoTheGamutByChromaAlone)
{
    EXPECT_EQ(OKLCH(parsed("#6E56CF")).toSRGB(1).hex(), "#6E56CF");
    EXPECT_EQ(OKLCH(1, 0.1, 0).toSRGB(1).hex(), "#FFFFFF");
    EXPECT_EQ(OKLCH(0, 0.2, 100).toSRGB(1).hex(), "#000000");

    const auto green = OKLCH(0.9, 0.3, 145).toSRGB(1);
    EXPECT_EQ(green.hex(), "#80FF88");
    EXPECT_NEAR(OKLCH(green).lightness, 0.9, 1e-5);
    EXPECT_NEAR(OKLCH(green).chroma, 0.19503, 1e-5);
    EXPECT_NEAR(OKLCH(green).hue, 145, 1e-2);

    EXPECT_EQ(OKLCH(0.5, 0.1, 20).toSRGB(1.5).alpha, 1);
    EXPECT_EQ(OKLCH(0.9, 0.3, 145).toSRGB(-1).alpha, 0);
    EXPECT_EQ(OKLCH(0.9, 0.3, 145).toSRGB(0.25).alpha, 0.25);
    // A hue that rounding left at 360 is the hue 0.
    EXPECT_EQ(OKLCH(0.6, 0.3, -1e-20).toSRGB(1), OKLCH(0.6, 0.3, 0).toSRGB(1));
}

TEST(OKLCH, AgreesWithTheLiteralRuleToTheLastBit)
{
    int fitted = 0;
    for (int l = 0; l <= 20; ++l) {
        for (int c = 0; c <= 16; ++c) {
            for (int h = 0; h < 72; ++h) {
                const OKLCH color(l / 20.0, c / 40.0, h * 5.0 + l * 0.13);
                const auto point = literal::make(color.lightness, color.chroma, color.hue);
                const auto expected = literal::toRGB(point);
                ASSERT_EQ(
                    color.toSRGB(1), RGBAColor(expected.red, expected.green, expected.blue, 1))
                    << color.lightness << ' ' << color.chroma << ' ' << color.hue;
                fitted += literal::isInside(literal::linearRGB(point)) ? 0 : 1;
            }
        }
    }
    EXPECT_GT(fitted, 10'000);
}

TEST(OKLCH, SurvivesColorsOffTheRoad)
{
    for (const double a : { 0.0, -3.0, 1e100, -1e100, 1e300, infinity, -infinity, notANumber }) {
        for (const double b : { 0.5, 40.0, -1e300, infinity, notANumber }) {
            const OKLCH color(RGBAColor::stored(a, b, 0.25, 1));
            EXPECT_TRUE(color.chroma >= 0) << a << ' ' << b;
            EXPECT_FALSE(color.lightness < 0 || color.lightness > 1) << a << ' ' << b;
            for (const double component : { color.toSRGB(1).red, color.toSRGB(1).blue })
                EXPECT_FALSE(component < 0 || component > 1) << a << ' ' << b;
        }
    }
    EXPECT_EQ(OKLCH(0.5, infinity, 20).toSRGB(1).hex(), OKLCH(0.5, 0, 20).toSRGB(1).hex());
    EXPECT_EQ(OKLCH(0.5, 0.1, infinity).toSRGB(1).hex().size(), 7U);
}

} // namespace
} // namespace tintwell
