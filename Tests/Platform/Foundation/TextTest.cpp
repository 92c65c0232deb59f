#include "Text.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace platform {
namespace {

TEST(Text, FindsWhereUtf8Ends)
{
    const struct {
        std::string_view text;
        std::optional<std::size_t> expected;
    } rows[] = {
        { "", std::nullopt },
        { "plain ASCII that is longer than a machine word", std::nullopt },
        { "Source — Violet, 色, \U0001F3A8 and on", std::nullopt },
        { { "a\0b", 3 }, std::nullopt },
        { "\x80", 0 },
        { "0123456789\xFF", 10 },
        { "ab\xC3", 2 },
        { "ab\xC3(", 2 },
        { "\xC0\xAF", 0 },
        { "\xE0\x80\xAF", 0 },
        { "x\xED\xA0\x80", 1 },
        { "\xF4\x90\x80\x80", 0 },
        { "\xF8\x88\x80\x80\x80", 0 },
        { "12345678\xE2\x80", 8 },
    };
    for (const auto& row : rows)
        EXPECT_EQ(findInvalidUtf8(row.text), row.expected) << row.text;
}

TEST(Text, NamesFailuresInPlainWords)
{
    EXPECT_EQ(reasonText(ENOSPC), "the disk is full");
    EXPECT_FALSE(reasonText(ETIMEDOUT).empty());
}

} // namespace
} // namespace platform
