// The whole derivation, against palettes that were computed independently (Tests/Data).
#include "PaletteGenerator.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <string>
#include <vector>

namespace tintwell {
namespace {

std::vector<rapidjson::Document> documents(const std::string& file)
{
    std::vector<rapidjson::Document> list;
    std::ifstream in(std::string(TINTWELL_TEST_DATA "/") + file);
    for (std::string line; std::getline(in, line);) {
        list.emplace_back().Parse<rapidjson::kParseFullPrecisionFlag>(line.c_str());
        EXPECT_FALSE(list.back().HasParseError()) << file << ": " << line.substr(0, 60);
    }
    return list;
}

/// Every colour in export order, repeats included.
std::vector<NamedColor> everyColor(GeneratedPalette palette)
{
    // With names that are all different nothing counts as a repeat.
    std::vector<NamedColor> list { { "source", "Source — " + palette.sourceName, palette.source,
        std::nullopt } };
    const auto append = [&list](const std::vector<NamedColor>& colors, const std::string& id = "",
                            const std::string& name = "") {
        for (const auto& color : colors)
            list.push_back({ id + color.id, name + color.name, color.color, color.detail });
    };
    for (const auto& section : palette.harmonySections)
        append(section.colors);
    append(palette.monochromatic.colors);
    append(palette.tonal.colors);
    append(palette.lightTheme.colors, "light.", "Light — ");
    append(palette.darkTheme.colors, "dark.", "Dark — ");
    return list;
}

TEST(PaletteGenerator, TextsOfSixtySourcesMatch)
{
    const auto palettes = documents("palettes.jsonl");
    ASSERT_EQ(palettes.size(), 60U);
    for (const auto& expected : palettes) {
        SCOPED_TRACE(expected["hex"].GetString());
        const auto source = RGBAColor::fromHex(expected["hex"].GetString());
        ASSERT_TRUE(source);
        const auto palette = PaletteGenerator().generate(*source);
        EXPECT_EQ(palette.sourceName, expected["name"].GetString());
        const auto colors = everyColor(palette);
        const auto rows = expected["colors"].GetArray();
        ASSERT_EQ(colors.size(), rows.Size());
        for (rapidjson::SizeType i = 0; i < rows.Size(); ++i) {
            EXPECT_EQ(colors[i].id, rows[i][0].GetString());
            EXPECT_EQ(colors[i].name, rows[i][1].GetString());
            EXPECT_EQ(colors[i].color.hex(), rows[i][2].GetString()) << colors[i].id;
            ASSERT_EQ(colors[i].detail.has_value(), rows[i][3].IsString()) << colors[i].id;
            if (colors[i].detail) {
                EXPECT_EQ(*colors[i].detail, rows[i][3].GetString()) << colors[i].id;
            }
        }
    }
}

} // namespace
} // namespace tintwell
