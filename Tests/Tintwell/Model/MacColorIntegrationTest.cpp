#include "MacColorIntegration.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tintwell {
namespace {

namespace fs = std::filesystem;
using platform::contentOf;
using platform::TemporaryFolder;
using Names = std::vector<std::string>;

std::vector<NamedColor> colorsNamed(const Names& names)
{
    std::vector<NamedColor> colors;
    for (const auto& name : names)
        colors.push_back(
            { .id = "same", .name = name, .color = { 0.1, 0.2, 0.3, 0.5 }, .detail = "d" });
    return colors;
}

class Installer : public testing::Test {
protected:
    platform::Result<fs::path> install(const std::vector<NamedColor>& colors,
        const std::optional<fs::path>& destination = {}, const std::string& name = "Tintwell")
    {
        return installer_.install(name, colors, destination);
    }
    [[nodiscard]] Names installedKeys() const
    {
        for (const auto& list : registry_.availableColorLists())
            if (list.name() == "Tintwell")
                return list.allKeys();
        return {};
    }

    TemporaryFolder home_;
    platform::ColorListRegistry registry_ { home_ / "Library/Colors" };
    fs::path file_ = home_ / "Library/Colors/Tintwell.clr";

private:
    MacColorListInstaller installer_ { registry_,
        platform::PalettePublisher({ .config = home_ / "config", .data = home_ / "data" }) };
};

TEST_F(Installer, GivesEveryColorAKeyOfItsOwn)
{
    const std::string longName(10'000, 'x');
    const std::vector<std::pair<Names, Names>> cases {
        { { "Indigo", "Indigo", "" }, { "Indigo", "Indigo 2", "Color" } },
        { { "Indigo", "Indigo", "Indigo" }, { "Indigo", "Indigo 2", "Indigo 3" } },
        { { "Indigo 2", "Indigo", "Indigo" }, { "Indigo 2", "Indigo", "Indigo 3" } },
        { { "", "", "Color", "" }, { "Color", "Color 2", "Color 3", "Color 4" } },
        { { "indigo", "Indigo", "Indigo " }, { "indigo", "Indigo", "Indigo " } },
        { { "Bläu — 藍", "Bläu — 藍" }, { "Bläu — 藍", "Bläu — 藍 2" } },
        { { longName, longName }, { longName, longName + " 2" } },
    };
    for (const auto& [names, keys] : cases) {
        ASSERT_TRUE(install(colorsNamed(names)));
        EXPECT_EQ(installedKeys(), keys);
    }
}

TEST_F(Installer, KeepsComponentsUnchanged)
{
    const auto color = RGBAColor::stored(-0.25, 1.5, 1.0 / 3, 0.5);
    ASSERT_TRUE(install({ { .id = "a", .name = "A", .color = color, .detail = {} } }));
    const auto lists = registry_.availableColorLists();
    ASSERT_EQ(lists.size(), 1U);
    EXPECT_EQ(lists[0].colors()[0].second, (platform::Color { -0.25, 1.5, 1.0 / 3, 0.5 }));
}

TEST_F(Installer, ReplacesTheListOfThatName)
{
    ASSERT_TRUE(install(colorsNamed({ "One", "Two", "Three" })));
    const auto first = contentOf(file_);
    ASSERT_TRUE(install(colorsNamed({ "One", "Two", "Three" })));
    EXPECT_EQ(contentOf(file_), first);
    ASSERT_TRUE(install(colorsNamed({ "Two" })));
    EXPECT_EQ(installedKeys(), Names { "Two" });
    ASSERT_TRUE(install(colorsNamed({ "Other" }), {}, "tintwell"));
    EXPECT_EQ(installedKeys(), Names { "Two" });
    EXPECT_EQ(registry_.availableColorLists().size(), 2U);
}

TEST_F(Installer, AnswersWithTheFileThatItWrote)
{
    fs::create_directory(home_ / "folder");
    const std::string folder = (home_ / "folder").string();
    const std::vector<std::pair<std::optional<fs::path>, fs::path>> cases {
        { std::nullopt, file_ },
        { folder + "/", folder + "/Tintwell.clr" },
        { folder + "/colors.json", folder + "/colors.json" },
        { folder + "/colors", folder + "/colors" },
    };
    for (const auto& [destination, expected] : cases) {
        const auto written = install(colorsNamed({ "One" }), destination);
        ASSERT_TRUE(written) << expected;
        EXPECT_EQ(written.value(), expected);
        EXPECT_NE(contentOf(expected).find(R"("name": "Tintwell")"), std::string::npos);
    }
}

TEST_F(Installer, ADestinationNeedsNoEditableListAndReachesNoProgram)
{
    fs::create_directories(home_ / "data/krita");
    fs::create_directories(registry_.folder());
    platform::writeContent(file_, R"({"colors":[],"editable":false,"name":"Tintwell"})");
    EXPECT_TRUE(install(colorsNamed({ "One" }), home_ / "out.clr"));
    EXPECT_TRUE(fs::is_empty(home_ / "data/krita"));
}

TEST_F(Installer, SaysWhyItCannotAndChangesNothing)
{
    fs::create_directories(home_ / "data/krita");
    fs::create_directories(registry_.folder());
    const std::string locked = R"({"colors":[],"editable":false,"name":"Tintwell"})";
    platform::writeContent(file_, locked);
    struct Case {
        std::vector<NamedColor> colors;
        std::optional<fs::path> destination;
        std::string name;
        std::string description;
    };
    const std::vector<Case> cases {
        { {}, {}, "Tintwell", "The palette has no colors to install." },
        { {}, home_ / "out.clr", "Tintwell", "The palette has no colors to install." },
        { colorsNamed({ "One" }), {}, "Tintwell",
            "The existing Tintwell color list cannot be edited." },
        { colorsNamed({ "One" }), {}, "../up",
            "A color list cannot be saved under the name \"../up\"" },
        { colorsNamed({ "One" }), home_.path() / "", "a/b",
            "A color list cannot be saved under the name \"a/b\"" },
        { colorsNamed({ "One" }), fs::path(), "Tintwell",
            "The color list has no file to be saved in" },
        { colorsNamed({ "One" }), registry_.folder(), "Tintwell",
            "Colors could not be written: a folder is in its place" },
    };
    for (const auto& c : cases) {
        const auto written = install(c.colors, c.destination, c.name);
        ASSERT_FALSE(written) << c.description;
        EXPECT_EQ(written.error().description, c.description);
    }
    EXPECT_EQ(contentOf(file_), locked);
    EXPECT_EQ(home_.names(), (Names { "Library", "data" }));
    EXPECT_TRUE(fs::is_empty(home_ / "data/krita"));
}

TEST_F(Installer, AProgramThatGetsNoCopyFailsTheInstallAfterTheListIsSaved)
{
    fs::create_directories(home_ / "data/krita");
    platform::writeContent(home_ / "data/krita/palettes", "a file");
    const auto written = install(colorsNamed({ "One" }));
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().description,
        "The color list was saved, but Krita did not get its copy, because Tintwell.gpl could not "
        "be written: a part of its path is not a folder");
    EXPECT_EQ(installedKeys(), Names { "One" });
}

class Halved final : public platform::ColorSpace {
    [[nodiscard]] std::optional<std::array<double, 3>> toSRGB(
        const std::array<double, 3>& components) const override
    {
        if (components[0] > 1)
            return std::nullopt;
        return std::array { components[0] / 2, components[1] * 8, components[2] / 2 };
    }
};

TEST(PlatformColor, ComesBackInSRGBAndInRange)
{
    const auto space = std::make_shared<Halved>();
    EXPECT_EQ(fromPlatformColor({ 0.2, 0.4, 0.6, 0.5 }), RGBAColor(0.2, 0.4, 0.6, 0.5));
    EXPECT_EQ(fromPlatformColor({ -1, 2, 0.5, 3 }), RGBAColor(0, 1, 0.5, 1));
    EXPECT_EQ(fromPlatformColor({ 0.5, 0.5, 1, 0.25, space }), RGBAColor(0.25, 1, 0.5, 0.25));
    EXPECT_EQ(fromPlatformColor({ 2, 0, 0, 1, space }), std::nullopt);
    const auto stored = RGBAColor::stored(-1, 2, 0.5, 3);
    EXPECT_EQ(toPlatformColor(stored), (platform::Color { -1, 2, 0.5, 3 }));
}

TEST(ColorPasteboard, WritesTheColorAndItsHexText)
{
    struct Recorder final : platform::Pasteboard {
        std::vector<platform::ColorContent> contents;
        void write(const platform::ColorContent& content) override { contents.push_back(content); }
        [[nodiscard]] platform::Result<platform::PastedContent> read() const override
        {
            return platform::PastedContent {};
        }
    } pasteboard;
    ColorPasteboard::write({ "id", "name", { 1, 0.5, 0.25, 0.5 }, "detail" }, pasteboard);
    ASSERT_EQ(pasteboard.contents.size(), 1U);
    EXPECT_EQ(pasteboard.contents[0].color, (platform::Color { 1, 0.5, 0.25, 0.5 }));
    EXPECT_EQ(pasteboard.contents[0].text, "#FF8040");
}

TEST(PastedContent, IsTheTextUnlessTheColorSaysMore)
{
    const platform::Color halfRed { 1, 0, 0, 0.5 };
    const RGBAColor red(1, 0, 0, 1);
    const RGBAColor blue(0, 0, 1, 1);
    EXPECT_EQ(fromPastedContent({ halfRed, "#FF0000" }), RGBAColor(1, 0, 0, 0.5));
    EXPECT_EQ(fromPastedContent({ halfRed, "color: #00f;" }), blue);
    EXPECT_EQ(fromPastedContent({ {}, "rgb(255 0 0)" }), red);
    EXPECT_EQ(fromPastedContent({ halfRed, "no color" }), RGBAColor(1, 0, 0, 0.5));
    EXPECT_EQ(fromPastedContent({ {}, "no color" }), std::nullopt);
}

} // namespace
} // namespace tintwell
