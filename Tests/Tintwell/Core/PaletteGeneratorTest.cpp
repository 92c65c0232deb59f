// The whole derivation, against palettes that were computed independently (Tests/Data).
#include "PaletteGenerator.h"

#include "LiteralRules.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>
#include <cmath>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace tintwell {
namespace {

std::vector<nlohmann::json> documents(const std::string& file)
{
    std::vector<nlohmann::json> list;
    std::ifstream in(std::string(TINTWELL_TEST_DATA "/") + file);
    for (std::string line; std::getline(in, line);)
        list.push_back(nlohmann::json::parse(line));
    return list;
}

/// Every colour in export order, repeats included.
std::vector<NamedColor> everyColor(const GeneratedPalette& palette)
{
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
        SCOPED_TRACE(expected["hex"]);
        const auto source = RGBAColor::fromHex(expected["hex"].get<std::string>());
        ASSERT_TRUE(source);
        const auto palette = PaletteGenerator().generate(*source);
        EXPECT_EQ(palette.sourceName, expected["name"].get<std::string>());
        const auto colors = everyColor(palette);
        const auto& rows = expected["colors"];
        ASSERT_EQ(colors.size(), rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            EXPECT_EQ(colors[i].id, rows[i][0].get<std::string>());
            EXPECT_EQ(colors[i].name, rows[i][1].get<std::string>());
            EXPECT_EQ(colors[i].color.hex(), rows[i][2].get<std::string>()) << colors[i].id;
            ASSERT_EQ(colors[i].detail.has_value(), rows[i][3].is_string()) << colors[i].id;
            if (colors[i].detail) {
                EXPECT_EQ(*colors[i].detail, rows[i][3].get<std::string>()) << colors[i].id;
            }
        }
    }
}

void expectColor(const RGBAColor& color, const nlohmann::json& expected, const std::string& id)
{
    EXPECT_NEAR(color.red, expected["red"].get<double>(), 1e-12) << id;
    EXPECT_NEAR(color.green, expected["green"].get<double>(), 1e-12) << id;
    EXPECT_NEAR(color.blue, expected["blue"].get<double>(), 1e-12) << id;
    EXPECT_EQ(color.alpha, expected["alpha"].get<double>()) << id;
}

void expectColors(const std::vector<NamedColor>& colors, const nlohmann::json& expected)
{
    const auto& rows = expected;
    ASSERT_EQ(colors.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto& row = rows[i];
        EXPECT_EQ(colors[i].id, row["id"].get<std::string>());
        EXPECT_EQ(colors[i].name, row["name"].get<std::string>());
        ASSERT_EQ(colors[i].detail.has_value(), row.contains("detail")) << colors[i].id;
        EXPECT_EQ(colors[i].detail.value_or(""), row.value("detail", ""));
        expectColor(colors[i].color, row["color"], colors[i].id);
    }
}

void expectSection(const PaletteSection& section, const nlohmann::json& expected)
{
    EXPECT_EQ(section.id, expected["id"].get<std::string>());
    EXPECT_EQ(section.title, expected["title"].get<std::string>());
    EXPECT_EQ(section.subtitle, expected["subtitle"].get<std::string>());
    expectColors(section.colors, expected["colors"]);
}

TEST(PaletteGenerator, EveryFieldOfTwelvePalettesMatches)
{
    const auto palettes = documents("generated.jsonl");
    ASSERT_EQ(palettes.size(), 12U);
    for (const auto& expected : palettes) {
        SCOPED_TRACE(expected["sourceName"]);
        const auto& source = expected["source"];
        const auto palette = PaletteGenerator().generate(
            RGBAColor(source["red"].get<double>(), source["green"].get<double>(),
                source["blue"].get<double>(), source["alpha"].get<double>()));
        expectColor(palette.source, source, "source");
        EXPECT_EQ(palette.sourceName, expected["sourceName"].get<std::string>());
        ASSERT_EQ(palette.harmonySections.size(), expected["harmonySections"].size());
        for (std::size_t i = 0; i < palette.harmonySections.size(); ++i)
            expectSection(palette.harmonySections[i], expected["harmonySections"][i]);
        expectSection(palette.monochromatic, expected["monochromatic"]);
        expectSection(palette.tonal, expected["tonal"]);
        for (const auto* theme : { &palette.lightTheme, &palette.darkTheme }) {
            const auto& expectedTheme
                = expected[theme == &palette.lightTheme ? "lightTheme" : "darkTheme"];
            EXPECT_EQ(theme->id(), expectedTheme["appearance"].get<std::string>());
            expectColors(theme->colors, expectedTheme["colors"]);
        }
    }
}

/// Equal to the last bit; two components that are not numbers agree.
void expectSame(const RGBAColor& color, const literal::RGB& expected, const std::string& id)
{
    const auto agree
        = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    EXPECT_TRUE(agree(color.red, expected.red) && agree(color.green, expected.green)
        && agree(color.blue, expected.blue) && color.alpha == 1)
        << id << ": " << color.hex();
}

void expectSameTheme(const OKLCH& base, Appearance appearance)
{
    const auto theme = PaletteGenerator().theme(base, appearance);
    const auto expected = literal::theme(
        { base.lightness, base.chroma, base.hue }, appearance == Appearance::light);
    ASSERT_EQ(theme.colors.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        expectSame(theme.colors[i].color, expected[i], theme.colors[i].id);
}

/// Every colour of the palette against the literal rules.
void expectSamePalette(const RGBAColor& source)
{
    const auto base = literal::fromRGB({ source.red, source.green, source.blue });
    const auto points = literal::sectionPoints(base);
    const auto colors = everyColor(PaletteGenerator().generate(source));
    ASSERT_EQ(colors.size(), 1 + points.size() + 20);
    for (std::size_t i = 0; i < points.size(); ++i)
        expectSame(colors[i + 1].color, literal::toRGB(points[i]), colors[i + 1].id);
    expectSameTheme(OKLCH(source), Appearance::light);
    expectSameTheme(OKLCH(source), Appearance::dark);
}

TEST(PaletteGenerator, AgreesWithTheLiteralRulesToTheLastBit)
{
    constexpr int perChannel = 12;
    for (int i = 0; i < perChannel * perChannel * perChannel; ++i) {
        const auto [red, green, blue] = literal::gridColor(i, perChannel);
        const RGBAColor source(red, green, blue, 1);
        SCOPED_TRACE(source.hex());
        expectSamePalette(source);
    }
}

TEST(PaletteGenerator, ThemesOfAnyBaseAgreeWithTheLiteralRules)
{
    for (const double lightness : { 0.0, 0.3, 0.58, 0.7, 0.9, 1.0 })
        for (const double chroma : { 0.0, 0.1, 0.11, 0.15, 0.18, 0.2, 0.37, 5.0 })
            for (const double hue : { 0.0, 10.0, 145.0, 180.0, 300.0, 350.0, 359.99 })
                for (const auto appearance : { Appearance::light, Appearance::dark }) {
                    SCOPED_TRACE(testing::Message() << lightness << ' ' << chroma << ' ' << hue);
                    expectSameTheme(OKLCH(lightness, chroma, hue), appearance);
                }
}

TEST(PaletteGenerator, ColorsOffTheRoadGiveWholePalettes)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::array far { -0.2, 1.7, 1e100, -1e100, 1e300, -1e300, infinity, -infinity,
        std::nan("") };
    for (const double a : far) {
        for (const double b : far) {
            const auto source = RGBAColor::stored(a, 0.5, b, 7);
            SCOPED_TRACE(testing::Message() << a << ' ' << b);
            expectSamePalette(source);
            const auto palette = PaletteGenerator().generate(source);
            EXPECT_EQ(palette.source.alpha, 7);
            EXPECT_FALSE(palette.sourceName.empty());
            EXPECT_GT(palette.exportColors().size(), 20U);
        }
    }
}

} // namespace
} // namespace tintwell
