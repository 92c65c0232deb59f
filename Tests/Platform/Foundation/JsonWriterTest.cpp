#include "JsonWriter.h"

#include "JsonDocument.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace platform {
namespace {

std::string sample(JsonStyle style)
{
    std::string out = "> ";
    JsonWriter json(out, style);
    json.beginObject();
    json.member("empty");
    json.beginArray();
    json.endArray();
    json.member("list");
    json.beginArray();
    json.element();
    json.boolean(true);
    json.element();
    json.beginObject();
    json.endObject();
    json.element();
    EXPECT_TRUE(json.number(-0.5));
    json.endArray();
    json.member("text");
    EXPECT_TRUE(json.string("a/b"));
    json.endObject();
    return out;
}

TEST(JsonWriter, WritesBothStyles)
{
    EXPECT_EQ(sample(JsonStyle::compact), R"(> {"empty":[],"list":[true,{},-0.5],"text":"a\/b"})");
    EXPECT_EQ(sample(JsonStyle::pretty), R"(> {
  "empty": [],
  "list": [
    true,
    {},
    -0.5
  ],
  "text": "a\/b"
})");
}

TEST(JsonWriter, EscapesWhatHasToBeAndTheSlash)
{
    std::string out;
    JsonWriter json(out, JsonStyle::compact);
    EXPECT_TRUE(json.string({ "\"\\/\b\f\n\r\t\0\x1F\x7F é\U0001F3A8", 18 }));
    EXPECT_EQ(out, "\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u0000\\u001f\x7F é\U0001F3A8\"");
}

TEST(JsonWriter, RefusesWhatJsonCannotSay)
{
    for (const double number : { std::numeric_limits<double>::infinity(),
             -std::numeric_limits<double>::infinity(), std::nan("") }) {
        std::string out;
        JsonWriter json(out, JsonStyle::compact);
        EXPECT_FALSE(json.number(number));
        EXPECT_EQ(json.place().sentence(), "is not a finite number");
    }
    std::string out;
    JsonWriter json(out, JsonStyle::compact);
    EXPECT_FALSE(json.string("\xFF"));
    EXPECT_EQ(json.place().sentence(), "is not UTF-8 text");
}

TEST(JsonWriter, NumbersReadBackToTheSameBits)
{
    std::mt19937_64 random(11);
    for (int round = 0; round < 100'000; ++round) {
        const auto bits = random();
        // Half of them any double, half of them between 0 and 1.
        const double number = round % 2 == 0 ? std::bit_cast<double>(bits)
                                             : static_cast<double>(bits >> 11U) * 0x1p-53;
        if (!std::isfinite(number))
            continue;
        std::string out;
        JsonWriter writer(out, JsonStyle::compact);
        ASSERT_TRUE(writer.number(number));
        double back = 0;
        JsonDocument document('[' + out + ']');
        ASSERT_TRUE(document.readArray([&] { return document.readNumber(back); })) << out;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(number)) << out;
    }
}

} // namespace
} // namespace platform
