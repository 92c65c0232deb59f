#include "LibraryCommands.h"

#include "PaletteGenerator.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

namespace tintwell {
namespace {

SavedPalette saved(std::string_view id, std::string name, std::string_view hex = "6E56CF")
{
    const auto source = RGBAColor::fromHex(hex).value();
    return { platform::Uuid::fromText(id).value(), std::move(name),
        platform::parseIso8601("2026-11-22T10:00:00Z").value(), source,
        PaletteGenerator().generate(source).exportColors() };
}

const std::vector<SavedPalette>& library()
{
    static const std::vector<SavedPalette> palettes {
        saved("AB000000-0000-4000-8000-000000000001", "First"),
        saved("AB000000-0000-4000-8000-000000000002", "Sec\x1b]0;ond", "F2C14E"),
        saved("CD000000-0000-4000-8000-000000000003", "Third"),
        saved("CD000000-0000-4000-8000-000000000003", "Third again"),
    };
    return palettes;
}

TEST(LibraryCommands, AnIdIsFoundByItsBeginning)
{
    struct Case {
        std::string_view prefix;
        std::string_view nameOrError;
    };
    for (const Case& row : {
             Case { "AB000000-0000-4000-8000-000000000001", "First" },
             Case { "ab000000-0000-4000-8000-000000000001", "First" },
             Case { "c", "Third" },
             Case { "ab", "2 saved palettes have an id that begins with \"ab\"; write more of it" },
             Case { "x", "No saved palette has an id that begins with \"x\"" },
             Case { "", "No saved palette has an id that begins with \"\"" },
             Case { "AB000000-0000-4000-8000-0000000000011",
                 "No saved palette has an id that begins with "
                 "\"AB000000-0000-4000-8000-0000000000011\"" },
         }) {
        const auto found = findSaved(library(), row.prefix);
        EXPECT_EQ(found ? found.value().name : found.error().description, row.nameOrError);
    }
}

TEST(LibraryCommands, PlainListHasWholeIdsAndHexStrips)
{
    const auto text = libraryLayout({ library()[1], library()[2] }, {});
    EXPECT_EQ(text.substr(0, text.find('\n')),
        "AB000000-0000-4000-8000-000000000002  2026-11-22T10:00:00Z  Sec�]0;ond  #F2C14E  "
        "#F2C14E #F2C14E #AFC8FF #FFB684 #C5D360 #88D3FF #CDBDFF #12E2F5 #F7A8FA #8AE18F #AFC8FF "
        "#F7A8FA");
    EXPECT_NE(text.find("  Third       #6E56CF  "), std::string::npos);
}

TEST(LibraryCommands, TerminalListShortensIdsAsFarAsTheyStayUnique)
{
    const Terminal terminal { .depth = ColorDepth::full, .columns = 100 };
    const auto one = libraryLayout({ library()[2] }, terminal);
    EXPECT_TRUE(one.starts_with("CD000000  2026-11-22T10:00:00Z  Third  \x1b[48;2;110;86;207m"));
    const auto all = libraryLayout(library(), terminal);
    EXPECT_TRUE(all.starts_with("AB000000-0000-4000-8000-000000000001  "));
}

TEST(LibraryCommands, TerminalListFitsTheWidth)
{
    const std::vector<SavedPalette> palettes { saved("AB000000-0000-4000-8000-000000000001", "紫"),
        saved("CD000000-0000-4000-8000-000000000003", "A long name that somebody typed") };
    for (int at = 0; at <= 160; ++at) {
        const int columns = 40 + at / 2;
        const auto depth = at % 2 == 0 ? ColorDepth::full : ColorDepth::none;
        std::istringstream lines(libraryLayout(palettes, { depth, columns, true }));
        for (std::string line; std::getline(lines, line);) {
            EXPECT_NE(line.find("#6E56CF"), std::string::npos);
            line = std::regex_replace(line, std::regex("\x1b\\[[0-9;]*m"), "");
            EXPECT_LE(displayWidth(line), columns) << line;
        }
    }
}

} // namespace
} // namespace tintwell
