#include "RGBAColor.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace tintwell {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(RGBAColor, ConstructionClampsAndStoredDoesNot)
{
    EXPECT_EQ(RGBAColor(-0.5, 1.5, -infinity, infinity), RGBAColor(0, 1, 0, 1));
    EXPECT_EQ(RGBAColor(0.25, 0.5, 0.75, 0.125).green, 0.5);
    EXPECT_FALSE(std::signbit(RGBAColor(-0.0, 0, 0, 1).red));
    EXPECT_TRUE(std::isnan(RGBAColor(notANumber, 0, 0, 1).red));
    EXPECT_EQ(RGBAColor::stored(-0.5, 1.5, 0, infinity).alpha, infinity);
}

TEST(RGBAColor, ReadsHexTextWhateverStandsAroundIt)
{
    struct Row {
        std::string_view text;
        std::array<int, 4> bytes;
    };
    const std::array<int, 4> seed { 0x6E, 0x56, 0xCF, 255 };
    for (const auto& [text, bytes] : {
             Row { "#6E56CF", seed },
             Row { "6e56cf", seed },
             Row { "##6E56cf;", seed },
             Row { "-6E56CF", seed },
             Row { " \t6E56CF\r\n", seed },
             Row { std::string_view("\0#6E56CF\0", 9), seed },
             Row { "«6E56CF»\u2028", seed },
             Row { "\U0001F3A8 6E56CF \U0001F3A8", seed },
             Row { "\xFF\xC3#6E56CF\xE2\x82", seed }, // not UTF-8: symbols like any other
             Row { "#6E56CF80", { 0x6E, 0x56, 0xCF, 0x80 } },
             Row { "00000000", { 0, 0, 0, 0 } },
         }) {
        const RGBAColor expected(
            bytes[0] / 255.0, bytes[1] / 255.0, bytes[2] / 255.0, bytes[3] / 255.0);
        EXPECT_EQ(RGBAColor::fromHex(text), expected) << text;
    }
}

TEST(RGBAColor, RefusesTextThatIsNotSixOrEightHexDigits)
{
    for (const std::string_view text : { "", "#", "#FFF", "#6E56C", "#6E56CF8", "#6E56CF800",
             "#6E 56CF", "0x6E56CF", "6E56CG", "-6E56CF0", "6E-56C", "+6E-56CF8",
             "6E56CF\u0301", // a mark stays with its letter
             "\u0661\u0662\u0663\u0664\u0665\u0666", // digits, but not these
             "\uFF16E56CF", "\u00E9\u00E9\u00E9", "6E56CF\u00B2", "\u21676E56CF",
             "\u30426E56CF", // other numbers and letters
             "6E5\xFFGF", "\xFF\xFF\xFF\xFF\xFF\xFF" }) {
        EXPECT_FALSE(RGBAColor::fromHex(text)) << text;
    }
}

TEST(RGBAColor, HexRoundsHalvesUpAndSurvivesAnyComponent)
{
    struct Row {
        double component;
        const char* hex;
    };
    for (const auto& [component, hex] : { Row { 0, "#000000" }, Row { 1, "#FFFFFF" },
             Row { 0.5, "#808080" }, Row { 0.498, "#7F7F7F" }, Row { 0.0019, "#000000" },
             Row { 2.5 / 255, "#030303" }, Row { -0.0, "#000000" }, Row { 1e300, "#FFFFFF" },
             Row { -1e300, "#000000" }, Row { infinity, "#FFFFFF" }, Row { -infinity, "#000000" },
             Row { notANumber, "#000000" } })
        EXPECT_EQ(RGBAColor::stored(component, component, component, component).hex(), hex)
            << component;
    EXPECT_EQ(RGBAColor::fromHex("#6E56CF80")->hex(), "#6E56CF");
}

TEST(RGBAColor, LuminanceFollowsTheStandardCurve)
{
    const auto gray = [](double c) { return RGBAColor(c, c, c, 0.3).relativeLuminance(); };
    EXPECT_EQ(gray(1), 1);
    EXPECT_EQ(gray(0), 0);
    EXPECT_NEAR(RGBAColor::fromHex("#6E56CF")->relativeLuminance(), 0.14476, 5e-6);
    // Between 0.03928 and 0.04045 lies the straight part.
    EXPECT_NEAR(gray(0.04), 0.04 / 12.92, 1e-16);
    EXPECT_NEAR(gray(0.0405), std::pow(0.0955 / 1.055, 2.4), 1e-16);
    EXPECT_EQ(RGBAColor(1, 0, 0, 1).relativeLuminance(), 0.2126);
    EXPECT_EQ(RGBAColor(0, 0, 1, 1).relativeLuminance(), 0.0722);
}

TEST(RGBAColor, EqualityIsExactAndHashesAgreeWithIt)
{
    const std::hash<RGBAColor> hash;
    EXPECT_NE(RGBAColor(0.5, 0, 0, 1), RGBAColor(0.5000000001, 0, 0, 1));
    const auto zero = RGBAColor::stored(0, 0, 0, 1);
    const auto negativeZero = RGBAColor::stored(-0.0, 0, -0.0, 1);
    EXPECT_EQ(zero, negativeZero);
    EXPECT_EQ(hash(zero), hash(negativeZero));
    EXPECT_NE(hash(RGBAColor(0.1, 0.2, 0.3, 1)), hash(RGBAColor(0.2, 0.1, 0.3, 1)));
    EXPECT_NE(hash(RGBAColor(0.1, 0.2, 0.3, 1)), hash(RGBAColor(0.1, 0.2, 0.3, 0.5)));
}

} // namespace
} // namespace tintwell
