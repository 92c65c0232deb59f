#include "Terminal.h"

#include <gtest/gtest.h>

namespace tintwell {
namespace {

TEST(Terminal, PrintableTextCannotSteerATerminal)
{
    struct Case {
        std::string_view text;
        std::string_view shown;
    };
    for (const Case& row : {
             Case { "Violet — 50 %", "Violet — 50 %" },
             Case { "\x1b[31mred", "�[31mred" },
             Case { "a\tb\nc\r\x7f", "a�b�c��" },
             Case { "\u009b31m", "�31m" },
             Case { "left\u202Eright\u2066", "left�right�" },
             Case { "one\u2028two", "one�two" },
             Case { "\xff\xc3(", "��(" },
             Case { "\xed\xa0\x80", "���" },
             Case { "👩\u200d🎨", "👩\u200d🎨" },
             Case { std::string_view("\0", 1), "�" },
         })
        EXPECT_EQ(printable(row.text), row.shown) << row.shown;
}

TEST(Terminal, QuotesAreShortAndSafe)
{
    EXPECT_EQ(inQuotes("#FFF"), "\"#FFF\"");
    EXPECT_EQ(inQuotes(""), "\"\"");
    EXPECT_EQ(inQuotes(std::string(40, 'x')), "\"" + std::string(40, 'x') + "\"");
    EXPECT_EQ(inQuotes(std::string(1'000'000, 'x')), "\"" + std::string(40, 'x') + "…\"");
    EXPECT_EQ(inQuotes("\x1b"), "\"�\"");
}

TEST(Terminal, JsonKeepsItsMeaningWithoutRawControls)
{
    EXPECT_EQ(withEscapedControls("[\"a\x7f\u0080\u009f\u00a0é\"]"),
        "[\"a\\u007f\\u0080\\u009f\u00a0é\"]");
    EXPECT_EQ(withEscapedControls("\xc2"), "\xc2");
}

TEST(Terminal, TextFitsIntoCells)
{
    struct Case {
        std::string_view text;
        int columns;
        std::string_view shown;
    };
    for (const Case& row : {
             Case { "Base", 6, "Base  " },
             Case { "Base", 4, "Base" },
             Case { "Complement", 5, "Comp…" },
             Case { "紫色", 5, "紫色 " },
             Case { "紫色紫", 5, "紫色…" },
             Case { "紫色紫", 4, "紫… " },
             Case { "e\u0301te", 4, "e\u0301te " },
             Case { "Base", 0, "" },
         })
        EXPECT_EQ(fitted(row.text, row.columns), row.shown) << row.text << " in " << row.columns;
}

TEST(Terminal, ColorsAreAsDeepAsTheTerminalSays)
{
    using enum ColorChoice;
    using enum ColorDepth;
    struct Case {
        TerminalEnvironment environment; // terminal, TERM, COLORTERM, NO_COLOR, CLICOLOR_FORCE
        ColorChoice choice;
        ColorDepth depth;
    };
    for (const Case& row : {
             Case { { true, "xterm-256color", "truecolor", "", "" }, automatic, full },
             Case { { true, "xterm", "24bit", "", "" }, automatic, full },
             Case { { true, "xterm-direct", "", "", "" }, automatic, full },
             Case { { true, "screen-256color", "", "", "" }, automatic, indexed },
             Case { { true, "screen", "", "", "" }, automatic, none },
             Case { { true, "dumb", "truecolor", "", "" }, automatic, none },
             Case { { false, "xterm", "truecolor", "", "" }, automatic, none },
             Case { { true, "xterm", "truecolor", "1", "1" }, automatic, none },
             Case { { false, "xterm", "truecolor", "", "1" }, automatic, full },
             Case { { false, "xterm", "truecolor", "", "0" }, automatic, none },
             Case { { false, "", "", "1", "" }, always, indexed },
             Case { { false, "xterm", "truecolor", "1", "" }, always, full },
             Case { { true, "xterm", "truecolor", "", "1" }, never, none },
         })
        EXPECT_EQ(colorDepth(row.environment, row.choice), row.depth)
            << row.environment.term << " " << row.environment.colorTerm;
}

TEST(Terminal, ColorsAreReplacedByTheNearestOf256)
{
    struct Case {
        std::string_view hex;
        std::string_view number;
    };
    for (const Case& row : { Case { "000000", "16" }, Case { "FFFFFF", "231" },
             Case { "6E56CF", "62" }, Case { "FF0000", "196" }, Case { "808080", "244" },
             Case { "EEEEEE", "255" }, Case { "0B0B0B", "232" } }) {
        const Paint paint { .ink = RGBAColor(), .fill = RGBAColor::fromHex(row.hex), .bold = true };
        EXPECT_EQ(withIndexedColors(painted("38;2;1;2;3m", paint)),
            "\x1b[1;38;5;16;48;5;" + std::string(row.number) + "m38;2;1;2;3m\x1b[0m");
    }
}

TEST(Terminal, PaintingEndsItself)
{
    const RGBAColor violet(110 / 255.0, 86 / 255.0, 207 / 255.0, 1);
    EXPECT_EQ(painted("a", {}), "a");
    EXPECT_EQ(painted("a", { .fill = violet }), "\x1b[48;2;110;86;207ma\x1b[0m");
    EXPECT_EQ(painted("a", { .ink = RGBAColor::stored(7, -2, 0.5, 1), .bold = true }),
        "\x1b[1;38;2;255;0;128ma\x1b[0m");
}

} // namespace
} // namespace tintwell
