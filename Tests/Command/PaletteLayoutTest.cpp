#include "PaletteLayout.h"

#include "PaletteGenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace tintwell {
namespace {

GeneratedPalette paletteOf(std::string_view hex)
{
    return PaletteGenerator().generate(RGBAColor::fromHex(hex).value());
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::string withoutPaint(std::string text)
{
    for (auto at = text.find('\x1b'); at != std::string::npos; at = text.find('\x1b', at))
        text.erase(at, text.find('m', at) + 1 - at);
    return text;
}

/// The last line that begins with `start`.
std::string lineOf(const std::string& text, std::string_view start)
{
    std::string found;
    for (const auto& line : linesOf(text))
        found = line.starts_with(start) ? line : found;
    return found;
}

TEST(PaletteLayout, PlainTextAlignsNamesHexTextsAndDetails)
{
    const auto text = paletteLayout(paletteOf("6E56CF"), { .columns = 20 });
    EXPECT_EQ(linesOf(text).front(), "Violet  #6E56CF  oklch(54.2% 0.179 288.0)");
    for (const std::string_view line : {
             "Complementary  Direct contrast across the hue wheel",
             "  Complement    #767300  +180°",
             "  Left          #1D6AD4  −30°",
             "  Air           #EAE8FF  L 94",
             "  500           #7B65DF  Tone 500",
             "Light system  Semantic roles with accessible foreground pairs",
         })
        EXPECT_NE(text.find("\n" + std::string(line) + "\n"), std::string::npos) << line;
    EXPECT_EQ(lineOf(text, "  Text "), "  Text          #EDECFF  17.6:1 contrast");
    EXPECT_EQ(lineOf(text, "  Primary "), "  Primary       #9B8AFF");
    EXPECT_EQ(linesOf(text).size(), 1 + 7 * 2 + 31 + 2 * 2 + 20);
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
    EXPECT_TRUE(paletteLayout(paletteOf("6E56CF80"), {})
                    .starts_with("Violet  #6E56CF  oklch(54.2% 0.179 288.0 / 0.50)\n"));
}

TEST(PaletteLayout, StaysInsideTheTerminal)
{
    for (const char* hex : { "6E56CF80", "00FF00", "0A0A0D" })
        for (const auto depth : { ColorDepth::none, ColorDepth::full })
            for (int columns = 40; columns <= 140; ++columns)
                for (const auto& line :
                    linesOf(withoutPaint(paletteLayout(paletteOf(hex), { depth, columns, true }))))
                    ASSERT_LE(displayWidth(line), columns) << columns << ": " << line;
}

TEST(PaletteLayout, EveryColorIsABlockWithItsHex)
{
    const auto palette = paletteOf("6E56CF");
    auto colors = palette.exportColors();
    colors.erase(colors.begin());
    for (const int columns : { 40, 80, 200 }) {
        const auto text = paletteLayout(palette, { ColorDepth::full, columns });
        for (const auto& color : colors) {
            const auto block = painted(" ", { .fill = color.color });
            EXPECT_NE(text.find(block.substr(2, block.find(' ') - 2)), std::string::npos)
                << color.id;
            EXPECT_NE(text.find(color.color.hex()), std::string::npos) << color.id;
        }
        for (const char* caption : { "17.5:1 contrast", "5.2:1 contrast", "17.6:1 contrast" })
            EXPECT_NE(text.find(caption), std::string::npos) << caption << " in " << columns;
    }
}

TEST(PaletteLayout, ThemesStandSideBySideWhereThereIsRoom)
{
    const auto firstPreview = [](int columns) {
        const auto text
            = withoutPaint(paletteLayout(paletteOf("6E56CF"), { ColorDepth::full, columns }));
        const auto start = text.find("Light system");
        return text.substr(start, text.find('\n', start) - start);
    };
    EXPECT_NE(firstPreview(80).find("Dark system"), std::string::npos);
    EXPECT_EQ(firstPreview(60).find("Dark system"), std::string::npos);
}

TEST(PaletteLayout, TilesOfOneSectionShareTheWidthToItsLastCell)
{
    const auto text = withoutPaint(paletteLayout(paletteOf("6E56CF"), { ColorDepth::full, 80 }));
    EXPECT_NE(
        text.find("  Tetradic  A rectangular four-color system\n" + std::string(78, ' ') + "\n"),
        std::string::npos);
    EXPECT_NE(text.find("\n  Base               Tetrad two          Tetrad three       "
                        "Tetrad four       \n"),
        std::string::npos);
}

TEST(PaletteLayout, SwatchesLikeTheTerminalsBackgroundGetAnEdge)
{
    for (const char* hex : { "000000", "282C34", "FAFAFA", "FFFFFF" })
        EXPECT_EQ(withoutPaint(swatch(RGBAColor::fromHex(hex).value(), 4)), "▏  ▕") << hex;
    EXPECT_EQ(withoutPaint(swatch(RGBAColor::fromHex("6E56CF").value(), 4)), "    ");
    const auto text = withoutPaint(paletteLayout(paletteOf("000000"), { ColorDepth::full, 80 }));
    EXPECT_NE(text.find("\n  ┌────────────┐"), std::string::npos);
    EXPECT_NE(text.find("│  Near Black "), std::string::npos);
}

TEST(PaletteLayout, StripShowsTwelveColorsAtMost)
{
    auto colors = paletteOf("6E56CF").exportColors();
    const auto cells
        = [&](int columns) { return displayWidth(withoutPaint(colorStrip(colors, columns))); };
    EXPECT_EQ(cells(36), 36);
    EXPECT_EQ(cells(30), 24);
    EXPECT_EQ(cells(-5), 12);
    colors.resize(3);
    EXPECT_EQ(cells(36), 36);
    EXPECT_EQ(colorStrip({}, 36), "");
}

} // namespace
} // namespace tintwell
