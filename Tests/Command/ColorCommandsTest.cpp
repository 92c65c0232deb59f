#include "ColorCommands.h"

#include <gtest/gtest.h>

namespace tintwell {
namespace {

TEST(ColorCommands, LevelsGoByTheExactRatio)
{
    struct Case {
        double ratio;
        std::string_view text;
    };
    for (const Case& row : {
             Case { 1.0, "1.00:1\nAA   not reached\nAAA  not reached\n" },
             Case { 2.9999, "2.99:1\nAA   not reached\nAAA  not reached\n" },
             Case { 3.0, "3.00:1\nAA   large text, UI components\nAAA  not reached\n" },
             Case { 4.496, "4.49:1\nAA   large text, UI components\nAAA  not reached\n" },
             Case { 4.5, "4.50:1\nAA   normal text, large text, UI components\nAAA  large text\n" },
             Case {
                 6.999, "6.99:1\nAA   normal text, large text, UI components\nAAA  large text\n" },
             Case { 21.0,
                 "21.00:1\nAA   normal text, large text, UI components\n"
                 "AAA  normal text, large text\n" },
         })
        EXPECT_EQ(contrastLevels(row.ratio), row.text);
}

TEST(ColorCommands, ContrastShowsASampleOnTerminals)
{
    const RGBAColor white(1, 1, 1, 1);
    const RGBAColor black(0, 0, 0, 1);
    const auto plain = contrastReport(white, black, {});
    EXPECT_EQ(plain, contrastLevels(21));
    const auto shown = contrastReport(white, black, { .depth = ColorDepth::full });
    EXPECT_TRUE(shown.ends_with(plain));
    EXPECT_NE(
        shown.find("\x1b[1;38;2;255;255;255;48;2;0;0;0m   Near White on Near Black   \x1b[0m\n"),
        std::string::npos);
}

TEST(ColorCommands, ASourceBeyondAllNumbersIsNamed)
{
    for (const double far : { 1.0, 1e100, 1e140, 1e154, 1e200, 1e308 }) {
        const auto source = RGBAColor::stored(far, -far, 0, 1);
        const auto json = paletteText(source, PaletteFormat::json, {});
        const auto text = paletteText(source, PaletteFormat::layout, {});
        EXPECT_EQ(text ? "" : text.error().description, json ? "" : json.error().description);
        if (text)
            EXPECT_EQ(text.value().find("nan"), std::string::npos) << far;
        else
            EXPECT_NE(text.error().description.find("green -1e+"), std::string::npos);
    }
}

} // namespace
} // namespace tintwell
