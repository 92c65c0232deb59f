#include "ColorText.h"

#include <gtest/gtest.h>

namespace tintwell {
namespace {

/// "#RRGGBB" or "#RRGGBBAA"; empty for a text that is no colour.
std::string hexOf(std::string_view text)
{
    const auto color = colorFromText(text);
    return color ? color->hexWithAlpha() : "";
}

TEST(ColorText, ReadsTheFormsOfCss)
{
    struct Case {
        std::string_view text;
        std::string_view hex;
    };
    for (const Case& row : {
             Case { "6e56cf", "#6E56CF" },
             Case { " ##6E56CF80;", "#6E56CF80" },
             Case { "'6E56CF80:", "#6E56CF80" },
             Case { "#abc", "#AABBCC" },
             Case { "#ABC8", "#AABBCC88" },
             Case { "RebeccaPurple", "#663399" },
             Case { "transparent", "#00000000" },
             Case { "aliceblue", "#F0F8FF" },
             Case { "yellowgreen", "#9ACD32" },
             Case { "rgb(110 86 207)", "#6E56CF" },
             Case { "RGBA( 110,86 , 207,.5 )", "#6E56CF80" },
             Case { "rgb(43.137% 33.725% 81.176% / 50%)", "#6E56CF80" },
             Case { "rgb(100%,0%,0%)", "#FF0000" },
             Case { "rgb(1e2 none +300/none)", "#6400FF00" },
             Case { "hsl(120 100% 25%)", "#008000" },
             Case { "hsl(120deg,100%,25%,0.5)", "#00800080" },
             Case { "hsla(-240 100 25)", "#008000" },
             Case { "hsl(0.33333333turn 100% 25%)", "#008000" },
             Case { "hsl(133.33333grad 100% 25%)", "#008000" },
             Case { "hsl(2.0943951rad 100% 25%)", "#008000" },
             Case { "hsl(none none 50%)", "#808080" },
             Case { "oklch(54.17% 0.179 288.03)", "#6E56CF" },
             Case { "oklch(.5417 44.75% 288.03deg / 50%)", "#6E56CF80" },
             Case { "oklch(100% none none)", "#FFFFFF" },
             Case { "oklch(70% 0.4 145)", "#00BF34" },
             Case { "color: #abc;", "#AABBCC" },
             Case { "  --brand-500 : rgb(0 0 255) !important;\n", "#0000FF" },
             Case { "$brand: gold", "#FFD700" },
             Case { "\"brand\": \"#6E56CF\",", "#6E56CF" },
             Case { "\uFEFF#abc\r", "#AABBCC" },
         })
        EXPECT_EQ(hexOf(row.text), row.hex) << row.text;
}

TEST(ColorText, RefusesTheRest)
{
    for (const std::string_view text :
        { "", "#", "abc", "#ab", "#abcde", "#xyz", "grue", "red blue", "currentcolor", "rgb",
            "rgb()", "rgb(1 2)", "rgb(1 2 3", "rgb(1 2 3) 4", "rgb(1,2 3)", "rgb(1 2,3)",
            "rgb(1,2%,3)", "rgb(1,none,3)", "rgb(1 2 3deg)", "rgb(1 2 3, 1)", "rgb(1,2,3/1)",
            "rgb(inf 0 0)", "rgb(nan 0 0)", "rgb(1e999 0 0)", "rgb(- 1 2 3)", "hsl(1,2,3)",
            "hsl(10% 20% 30%)", "hsl(1e308turn 1% 1%)", "oklch(1,2,3)", "oklch(50% 0.1 20px)",
            "color(srgb 1 0 0)", "a b: red", ": red", "x: y: red" })
        EXPECT_EQ(hexOf(text), "") << text;
}

TEST(ColorText, WritesWhatItReads)
{
    const auto violet = RGBAColor::fromHex("6E56CF").value();
    EXPECT_EQ(rgbText(violet), "rgb(110 86 207)");
    EXPECT_EQ(hslText(violet), "hsl(251.9 55.8% 57.5%)");
    EXPECT_EQ(oklchText(violet), "oklch(54.17% 0.179 288.03)");
    EXPECT_EQ(rgbText(RGBAColor::fromHex("6E56CF80").value()), "rgb(110 86 207 / 0.5)");
    EXPECT_EQ(customProperty("light.On primary", violet), "--tintwell-light-on-primary: #6E56CF;");

    // A step without common factor with 2^24 meets every part of the cube, dark rim included.
    std::size_t at = 0;
    for (unsigned rgb = 0; rgb < 1U << 24U; rgb += rgb < 4096 ? 1 : 1009) {
        const auto component = [rgb](unsigned bit) { return (rgb >> bit & 255U) / 255.0; };
        const auto alpha = static_cast<double>(at++ % 256) / 255;
        const RGBAColor color(component(16), component(8), component(0), alpha);
        for (const auto& text : { rgbText(color), hslText(color), oklchText(color) })
            ASSERT_EQ(colorFromText(text).value_or(RGBAColor()).bytes(), color.bytes()) << text;
    }
}

} // namespace
} // namespace tintwell
