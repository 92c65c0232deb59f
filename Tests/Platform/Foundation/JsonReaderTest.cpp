#include "JsonReader.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>

namespace platform {
namespace {

bool accepts(std::string_view text)
{
    JsonReader json(text);
    return json.skipValue() && json.readEnd();
}

/// What another reader thinks, or nothing of numbers that are too large for it.
std::optional<bool> yardstickAccepts(std::string_view text)
{
    constexpr int numberTooLarge = 406;
    try {
        return !nlohmann::json::parse(text).is_discarded();
    } catch (const nlohmann::json::exception& error) {
        return error.id == numberTooLarge ? std::nullopt : std::optional(false);
    }
}

const char* const validTexts[] = {
    "null",
    " true ",
    "false",
    "0",
    "-0",
    "-0.0e-0",
    "1234567890.0987654321E+1",
    "\"\"",
    R"("\"\\\/\b\f\n\r\té😀")",
    "\"Source — Violet \U0001F3A8\"",
    "[]",
    "{ }",
    "[ 1 , [ ] , { } , \"a\" ]",
    R"({"a":{"b":[{"c":null}],"b":2},"":0})",
    "\t\r\n[\n\n                    1,        2]\n",
};

TEST(JsonReader, AcceptsWhatIsJson)
{
    for (const auto* text : validTexts) {
        EXPECT_TRUE(accepts(text)) << text;
        EXPECT_NE(yardstickAccepts(text), false) << text;
    }
    EXPECT_TRUE(accepts("\xEF\xBB\xBF[1]"));
}

TEST(JsonReader, RefusesWhatIsNot)
{
    const char* const texts[] = {
        "",
        " ",
        "nul",
        "nulll",
        "True",
        "NaN",
        "Infinity",
        "-",
        "+1",
        "01",
        "1.",
        ".5",
        "1e",
        "1e+",
        "0x10",
        "1 2",
        "'a'",
        "\"",
        "\"a",
        "\"\\",
        "\"\\\"",
        R"("\x")",
        R"("\u12")",
        R"("\u12G4")",
        R"("\ud800")",
        R"("\udc00")",
        R"("\ud800\n")",
        R"("\ud800A")",
        "\"a\nb\"",
        "\"\x1F\"",
        "\"\xC3\"",
        "[",
        "[1",
        "[1,",
        "[1,]",
        "[,]",
        "[1 2]",
        "[1}",
        "]",
        "{",
        "{\"a\"",
        "{\"a\":",
        "{\"a\":1",
        "{\"a\":1,",
        "{\"a\":1,}",
        "{\"a\" 1}",
        "{a:1}",
        "{1:1}",
        "{\"a\":1]",
        "{\"a\":1 \"b\":2}",
        "/* */ 1",
        "[1] x",
    };
    for (const auto* text : texts) {
        EXPECT_FALSE(accepts(text)) << text;
        EXPECT_NE(yardstickAccepts(text), true) << text;
    }
    EXPECT_FALSE(accepts(std::string_view("1\0", 2)));
}

TEST(JsonReader, AgreesWithAnotherReaderOnDamagedTexts)
{
    std::mt19937 random(7);
    constexpr std::string_view bytes = "{}[]\",:\\/ue0019.+-\ntfnab \x01\x80\xC3\xE2";
    int accepted = 0;
    for (int round = 0; round < 40'000; ++round) {
        std::string text = validTexts[random() % std::size(validTexts)];
        for (auto damages = 1 + random() % 2; damages > 0; --damages) {
            const auto at = random() % (text.size() + 1);
            const char byte = bytes[random() % bytes.size()];
            if (at < text.size() && random() % 3 != 0)
                text[at] = byte;
            else
                text.insert(at, 1, byte);
        }
        const auto expected = yardstickAccepts(text);
        if (!expected)
            continue;
        ASSERT_EQ(accepts(text), *expected) << text;
        accepted += accepts(text) ? 1 : 0;
    }
    EXPECT_GT(accepted, 1000);
}

TEST(JsonReader, ReadsNumbersToTheLastBit)
{
    const struct {
        const char* text;
        double expected;
    } rows[] = {
        { "0", 0.0 },
        { "-0", -0.0 },
        { "1", 1.0 },
        { "1E2", 100.0 },
        { "0.1", 0.1 },
        { "0.43137255623628107", 0.43137255623628107 },
        { "9007199254740993", 9007199254740992.0 },
        { "9007199254740993.0000000000000000000000000000000000001", 9007199254740994.0 },
        { "2.2250738585072011e-308", 2.2250738585072011e-308 },
        { "4.9e-324", 4.9e-324 },
        { "1e-400", 0.0 },
        { "-1e-400", -0.0 },
        { "1.7976931348623157e308", std::numeric_limits<double>::max() },
    };
    for (const auto& row : rows) {
        JsonReader json(row.text);
        double number = 42;
        ASSERT_TRUE(json.readNumber(number)) << row.text;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(number), std::bit_cast<std::uint64_t>(row.expected))
            << row.text;
    }
    for (const char* text : { "1e309", "-1.8e308", "1e99999999999999999999" }) {
        JsonReader json(text);
        double number = 0;
        EXPECT_FALSE(json.readNumber(number));
        EXPECT_EQ(json.problem(), "expected a number of at most 1.8e308");
    }
}

TEST(JsonReader, ResolvesEscapes)
{
    JsonReader json(R"(["plain","\"\\\/\b\f\n\r\t","\u00e9\u20AC\ud83c\udfa8-\u0041","a\u0000b"])");
    std::vector<std::string> texts;
    ASSERT_TRUE(json.readArray([&] { return json.readString(texts.emplace_back()); }));
    EXPECT_EQ(texts,
        (std::vector<std::string> { "plain", "\"\\/\b\f\n\r\t", "é€\U0001F3A8-A", { "a\0b", 3 } }));
}

TEST(JsonReader, HandsOutMembersInTheirOrder)
{
    JsonReader json(R"( { "b" : true , "\u0061" : null, "skipped":[{"x":1}], "c":false } )");
    std::string seen;
    bool value = false;
    ASSERT_TRUE(json.readObject([&](std::string_view name) {
        seen += name;
        if (name == "a")
            return json.readNull();
        if (name == "skipped")
            return json.skipValue();
        const bool read = json.readBoolean(value);
        seen += value ? "+" : "-";
        return read;
    })) << json.problem();
    EXPECT_TRUE(json.readEnd());
    EXPECT_EQ(seen, "b+askippedc-");
}

TEST(JsonReader, SaysWhatItExpectedAndWhere)
{
    const struct {
        std::string text;
        const char* problem;
    } rows[] = {
        { "", "expected an array in line 1, where the text ends" },
        { "{}", "expected an array" },
        { "[1", "entry 1: expected an object" },
        { "[{},{}]x", "expected the end of the text in line 1" },
        { "[{}\n{}]", R"(expected "," or "]" in line 2)" },
        { "[{},\n{\"a\":\n1 2}]", R"(entry 2: expected "," or "}" in line 3)" },
        { "[{\"a\":nil}]", R"(entry 1, "a": expected null without quotes in line 1)" },
        { "[{\"a\":\"\n\"}]",
            R"(entry 1, "a": expected a quote at the end of the string in line 1)" },
        { "[{\"a\":\"\\q\"}]", R"(entry 1, "a": expected a valid "\" escape in line 1)" },
        { "[{\"a\":[1,[1,{\"b\":-}]]}]", R"(entry 1, "a": expected a digit in line 1)" },
        { "[\n\"\xFF\"]", "expected UTF-8 text in line 2" },
        { R"([{"a\n\u0000":x}])", R"(entry 1, "a  ": expected a value in line 1)" },
        { "[{\"" + std::string(39, '.') + "éx\":x}]",
            "entry 1, \".......................................é…\": expected a value in line 1" },
    };
    for (const auto& row : rows) {
        JsonReader json(row.text);
        EXPECT_FALSE(json.readArray([&] {
            return json.readObject([&](std::string_view) { return json.skipValue(); });
        }) && json.readEnd());
        EXPECT_EQ(json.problem(), row.problem) << row.text;
    }
}

TEST(JsonReader, SkipsDeepValuesOnlyAsFarAsTheyAreSane)
{
    const auto nested
        = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
    EXPECT_TRUE(accepts(nested(512)));
    EXPECT_FALSE(accepts(nested(513)));
    EXPECT_FALSE(accepts(std::string(1'000'000, '[')));
}

} // namespace
} // namespace platform
