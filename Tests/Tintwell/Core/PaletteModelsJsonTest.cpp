#include "PaletteModelsJson.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>

namespace tintwell {
namespace {

using Library = std::vector<SavedPalette>;

SavedPalette samplePalette()
{
    return { .id = *platform::Uuid::fromText("0f8fad5b-d9cb-469f-a165-70867728950e"),
        .name = "Violet",
        .createdAt = *platform::parseIso8601("2026-11-22T12:00:00+02:00"),
        .source = RGBAColor(0.1, 0.2, 0.3, 1),
        .colors = {
            { "source", "Source — Violet", RGBAColor(0.1, 0.2, 0.3, 0.5), std::nullopt },
            { "a/b", "\"A\"", RGBAColor::stored(-1, 2, 1e-7, 1e300), "+180°" },
        } };
}

constexpr std::string_view sampleText = R"([
  {
    "colors": [
      {
        "color": {
          "alpha": 0.5,
          "blue": 0.3,
          "green": 0.2,
          "red": 0.1
        },
        "id": "source",
        "name": "Source — Violet"
      },
      {
        "color": {
          "alpha": 1e+300,
          "blue": 1e-07,
          "green": 2,
          "red": -1
        },
        "detail": "+180°",
        "id": "a\/b",
        "name": "\"A\""
      }
    ],
    "createdAt": "2026-11-22T10:00:00Z",
    "id": "0F8FAD5B-D9CB-469F-A165-70867728950E",
    "name": "Violet",
    "source": {
      "alpha": 1,
      "blue": 0.3,
      "green": 0.2,
      "red": 0.1
    }
  }
])";

template <typename Record>
std::string encoded(const Record& record, JsonStyle style = JsonStyle::compact)
{
    std::string out;
    const auto appended = appendJson(out, record, style);
    EXPECT_TRUE(appended);
    return out;
}

/// The record that `text` stands for; a failure when there is none.
template <typename Record> Record decoded(std::string_view text)
{
    auto record = decodeJson<Record>(std::string(text));
    if (record)
        return record.value();
    ADD_FAILURE() << record.error().description;
    return {};
}

template <typename Record> std::string errorOf(std::string_view text)
{
    const auto record = decodeJson<Record>(std::string(text));
    return record ? "no error" : record.error().description;
}

/// The sample with the first `from` replaced by `to`.
std::string sampleWith(std::string_view from, std::string_view to)
{
    std::string text(sampleText);
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

TEST(PaletteModelsJson, WritesSortedMembersAndReadsThemBack)
{
    const Library library { samplePalette() };
    EXPECT_EQ(encoded(library, JsonStyle::pretty), sampleText);
    EXPECT_EQ(decoded<Library>(sampleText), library);
    EXPECT_EQ(decoded<Library>(encoded(library)), library);
    EXPECT_EQ(encoded(Library {}, JsonStyle::pretty), "[]");
    EXPECT_EQ(decoded<Library>(" [ ] "), Library {});
}

/// The text of another writer, which marks whole numbers by ".0".
std::string withPlainWholeNumbers(std::string text)
{
    for (const std::string_view mark : { ".0,", ".0}" })
        for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at))
            text.erase(at, 2);
    return text;
}

TEST(PaletteModelsJson, EveryRecordOfGeneratedPalettesComesBack)
{
    std::ifstream file(TINTWELL_TEST_DATA "/generated.jsonl");
    int lines = 0;
    for (std::string line; std::getline(file, line); ++lines) {
        const auto palette = decoded<GeneratedPalette>(line);
        EXPECT_EQ(palette.harmonySections.size(), 5U);
        EXPECT_EQ(palette.darkTheme.appearance, Appearance::dark);
        EXPECT_EQ(encoded(palette), withPlainWholeNumbers(line));
        EXPECT_EQ(decoded<GeneratedPalette>(encoded(palette, JsonStyle::pretty)), palette);
        const auto& theme = palette.lightTheme;
        EXPECT_EQ(decoded<ThemePalette>(encoded(theme)), theme);
        EXPECT_EQ(decoded<PaletteSection>(encoded(palette.tonal)), palette.tonal);
        EXPECT_EQ(decoded<NamedColor>(encoded(theme.colors[2])), theme.colors[2]);
        EXPECT_EQ(decoded<RGBAColor>(encoded(palette.source)), palette.source);
        EXPECT_EQ(decoded<std::vector<NamedColor>>(encoded(theme.colors)), theme.colors);
    }
    EXPECT_GT(lines, 0);
}

TEST(PaletteModelsJson, TakesWhatHandsAndOtherProgramsMakeOfIt)
{
    const Library library { samplePalette() };
    const struct {
        std::string_view from;
        std::string_view to;
    } sameLibrary[] = {
        { "[", "\xEF\xBB\xBF[" },
        { "\"createdAt\"", R"("later":{"x":[1,{"y":null}],"z":1e999},"createdAt")" },
        { "\"alpha\"", R"("gamma":1e-0000000000000000000000400,"alpha")" },
        { "\"alpha\"", R"("gamma":"\u0000","alpha")" },
        { R"("name": "Source — Violet")", R"("name":"Source — Violet","detail":null)" },
        { "\"alpha\"", R"("\u0061lpha")" },
        { "\"Violet\"", R"("\u0056iolet")" },
        { "0F8FAD5B-D9CB", "0f8faD5b-d9Cb" },
        { "2026-11-22T10:00:00Z", "2026-11-21T23:30:00-10:30" },
        { "1e-07", "0.0000001" },
        { "0.3", "0.30000000000000000000000000000000000000000000000000000001" },
        { "0.2", "0.19999999999999999999999999999999999999999999999999999999" },
        { "1e-07", "1E-0000000000000000000000007" },
        { R"("alpha": 0.5,)", R"("alpha": 0.25, "alpha": 0.5,)" },
        { R"("colors": [)", R"("colors": [], "colors": [)" },
    };
    for (const auto& row : sameLibrary)
        EXPECT_EQ(decoded<Library>(sampleWith(row.from, row.to)), library) << row.to;
    EXPECT_EQ(decoded<NamedColor>(R"({"detail":"x","id":"","name":"","detail":null,
        "color":{"red":0,"green":0,"blue":0,"alpha":1}})")
                  .detail,
        std::nullopt);
}

TEST(PaletteModelsJson, SaysWhichMemberOfWhichEntryIsWrong)
{
    constexpr auto date = R"(entry 1, "createdAt": expected a date like 2026-11-22T10:00:00Z)";
    constexpr auto escape = R"(entry 1, "name": expected a valid "\" escape in line 28)";
    constexpr auto number
        = R"(entry 1, "colors" 2, "color", "red": expected valid JSON in line 19)";
    const struct {
        std::string_view from;
        std::string_view to;
        std::string_view error;
    } rows[] = {
        { "2026-11-22T10:00:00Z", "2026-11-22T10:00:00.5Z", date },
        { "2026-11-22T10:00:00Z", "2026-11-22", date },
        { "\"2026-11-22T10:00:00Z\"", "17", R"(entry 1, "createdAt": expected a string)" },
        { "0F8FAD5B-", "0F8FAD5B",
            R"(entry 1, "id": expected a UUID like 0F8FAD5B-D9CB-469F-A165-70867728950E)" },
        { "\"red\": -1", "\"red\": \"-1\"",
            R"(entry 1, "colors" 2, "color", "red": expected a number)" },
        { "\"red\": -1", "\"red\": null",
            R"(entry 1, "colors" 2, "color", "red": expected a number)" },
        { "1e+300", "1e+309",
            R"(entry 1, "colors" 2, "color", "alpha": expected a number of at most 1.8e308)" },
        { R"("alpha": 1,)", "", R"(entry 1, "source": the member "alpha" is missing)" },
        { R"("name": "Violet",)", "", R"(entry 1: the member "name" is missing)" },
        { R"("id": "source",)", "", R"(entry 1, "colors" 1: the member "id" is missing)" },
        { "\"source\"", "null", R"(entry 1, "colors" 1, "id": expected a string)" },
        { "\"+180°\"", "180", R"(entry 1, "colors" 2, "detail": expected a string)" },
        { "\"name\": \"Violet\"", "\"Name\": \"Violet\"",
            R"(entry 1: the member "name" is missing)" },
        { "\"colors\": [", "\"colors\": {}, \"x\": [", R"(entry 1, "colors": expected an array)" },
        { "[\n  {", "[\n  null, {", "entry 1: expected an object" },
        { "\"Violet\"", "\"Vio\nlet\"", "expected a quote at the end of the string in line 28" },
        { "\"Violet\"", "\"Vio\xFFlet\"", "expected UTF-8 text in line 28" },
        { "\"Violet\",", "\"Violet\"", "entry 1: expected valid JSON in line 29" },
        { "\"Violet\"", R"("\x")", escape },
        { "\"Violet\"", R"("\ud800")", escape },
        { "\"red\": -1", "\"red\": -01", number },
        { "\"red\": -1", "\"red\": 1.", number },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(errorOf<Library>(sampleWith(row.from, row.to)), row.error) << row.to;
    }
    EXPECT_EQ(errorOf<Library>("{}"), "expected an array");
    const std::string twoEntries = "[" + encoded(samplePalette()) + ",{}]";
    EXPECT_EQ(errorOf<Library>(twoEntries), R"(entry 2: the member "colors" is missing)");
    EXPECT_EQ(errorOf<ThemePalette>(R"({"appearance":"Light","colors":[]})"),
        R"("appearance": expected "light" or "dark")");
}

TEST(PaletteModelsJson, RefusesEveryTruncatedLibrary)
{
    for (std::size_t length = 0; length < sampleText.size(); ++length)
        EXPECT_FALSE(decodeJson<Library>(std::string(sampleText, 0, length))) << length;
}

TEST(PaletteModelsJson, DeepAndEndlessFilesEndInAnError)
{
    const std::string deep(5'000'000, '[');
    EXPECT_EQ(errorOf<Library>(deep), "entry 1: expected an object");
    EXPECT_EQ(errorOf<Library>(R"([{"x":)" + deep), R"(entry 1, "x": is nested too deeply)");
    const std::string longText(5'000'000, '\\');
    EXPECT_EQ(errorOf<Library>("[{\"x\":\"" + longText + "\"}]"),
        R"(entry 1: the member "colors" is missing)");
}

TEST(PaletteModelsJson, RefusesToWriteWhatCannotBeReadBack)
{
    auto palette = samplePalette();
    palette.colors[1].color.green = std::nan("");
    std::string out = "before";
    auto appended = appendJson(out, Library { samplePalette(), palette }, JsonStyle::pretty);
    ASSERT_FALSE(appended);
    EXPECT_EQ(appended.error().description,
        R"(entry 2, "colors" 2, "color", "green": is not a finite number)");
    EXPECT_EQ(out, "before");

    palette = samplePalette();
    palette.name = "\xC3";
    appended = appendJson(out, palette, JsonStyle::compact);
    ASSERT_FALSE(appended);
    EXPECT_EQ(appended.error().description, R"("name": is not UTF-8 text)");
    EXPECT_EQ(out, "before");
}

TEST(PaletteModelsJson, DropsTheFractionOfASecond)
{
    auto palette = samplePalette();
    palette.createdAt += std::chrono::milliseconds { 500 };
    const auto back = decoded<SavedPalette>(encoded(palette));
    EXPECT_NE(back, palette);
    EXPECT_EQ(back, samplePalette());
}

} // namespace
} // namespace tintwell
