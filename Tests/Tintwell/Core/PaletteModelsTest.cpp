#include "PaletteModels.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

namespace tintwell {
namespace {

const RGBAColor red(1, 0, 0, 1);
const RGBAColor blue(0, 0, 1, 1);

std::vector<std::string> idsOf(const std::vector<NamedColor>& colors)
{
    std::vector<std::string> ids;
    ids.reserve(colors.size());
    for (const auto& color : colors)
        ids.push_back(color.id);
    return ids;
}

GeneratedPalette smallPalette()
{
    GeneratedPalette palette;
    palette.source = RGBAColor(1, 0, 0, 0.5);
    palette.sourceName = "Vivid Coral";
    palette.harmonySections = { { "a", "A", "", { { "a.0", "Base", red, "Source" } } },
        { "b", "B", "",
            { { "b.0", "Base", red, "again" }, { "b.1", "Other", red, std::nullopt } } } };
    palette.monochromatic = { "m", "M", "",
        { { "m.0", "Base", RGBAColor(1, 0, 0, 0.2), std::nullopt },
            { "m.1", "Base", RGBAColor(1, 0, 0.004, 1), std::nullopt } } };
    palette.tonal = { "t", "T", "", { { "tone.50", "50", blue, "Tone 50" } } };
    palette.lightTheme = { Appearance::light, { { "text", "Text", blue, "7.0:1 contrast" } } };
    palette.darkTheme = { Appearance::dark, { { "text", "Text", blue, std::nullopt } } };
    return palette;
}

TEST(GeneratedPalette, ExportsEveryColorOnceByNameAndHex)
{
    const auto colors = smallPalette().exportColors();
    // b.0 and m.0 repeat a.0: detail and alpha take no part. m.1 differs in one digit.
    EXPECT_EQ(idsOf(colors),
        (std::vector<std::string> {
            "source", "a.0", "b.1", "m.1", "tone.50", "light.text", "dark.text" }));
    EXPECT_EQ(
        colors[0], (NamedColor { "source", "Source — Vivid Coral", RGBAColor(1, 0, 0, 0.5), {} }));
    EXPECT_EQ(colors[1].detail, "Source");
    EXPECT_EQ(colors[5], (NamedColor { "light.text", "Light — Text", blue, "7.0:1 contrast" }));
    EXPECT_EQ(colors[6].name, "Dark — Text");
    EXPECT_EQ(idsOf(GeneratedPalette {}.exportColors()), std::vector<std::string> { "source" });
}

TEST(ThemePalette, FindsTheFirstRoleOfExactlyThatName)
{
    const ThemePalette theme { Appearance::dark,
        { { "primary", "Primary", red, {} }, { "other", "Primary", blue, {} } } };
    EXPECT_EQ(theme.colorNamed("Primary"), red);
    EXPECT_EQ(theme.colorNamed("primary"), std::nullopt);
    EXPECT_EQ(theme.colorNamed("Primary "), std::nullopt);
    EXPECT_EQ(theme.id(), "dark");
}

TEST(RawValues, AreReadBackOnlyWhenExact)
{
    for (const auto tab : allWorkspaceTabs)
        EXPECT_EQ(workspaceTabFromRawValue(rawValue(tab)), tab);
    EXPECT_EQ(rawValue(allWorkspaceTabs[0]), "Studio");
    EXPECT_EQ(rawValue(allWorkspaceTabs[1]), "Themes");
    EXPECT_EQ(rawValue(allWorkspaceTabs[2]), "Saved");
    EXPECT_EQ(workspaceTabFromRawValue("studio"), std::nullopt);
    EXPECT_EQ(workspaceTabFromRawValue(""), std::nullopt);
    EXPECT_EQ(appearanceFromRawValue("light"), Appearance::light);
    EXPECT_EQ(appearanceFromRawValue("dark"), Appearance::dark);
    EXPECT_EQ(appearanceFromRawValue("Light"), std::nullopt);
}

/// Each change of one field must be seen by equality and by the hash.
template <typename Record>
void expectFieldsCount(
    const Record& original, const std::vector<std::function<void(Record&)>>& changes)
{
    const std::hash<Record> hash;
    EXPECT_EQ(Record(original), original);
    EXPECT_EQ(hash(Record(original)), hash(original));
    std::set<std::size_t> hashes { hash(original) };
    for (const auto& change : changes) {
        auto changed = original;
        change(changed);
        EXPECT_NE(changed, original);
        EXPECT_TRUE(hashes.insert(hash(changed)).second) << "change " << hashes.size();
    }
}

TEST(Records, EveryFieldTakesPartInEqualityAndHash)
{
    expectFieldsCount<NamedColor>({ "id", "name", red, std::nullopt },
        { [](auto& c) { c.id = "name"; }, [](auto& c) { c.name = "id"; },
            [](auto& c) { c.color.alpha = 0.5; }, [](auto& c) { c.detail = ""; },
            [](auto& c) { c.detail = "detail"; } });
    expectFieldsCount<PaletteSection>(smallPalette().harmonySections[1],
        { [](auto& s) { s.id = "x"; }, [](auto& s) { s.title = "x"; },
            [](auto& s) { s.subtitle = "x"; }, [](auto& s) { s.colors.pop_back(); },
            [](auto& s) { std::swap(s.colors[0], s.colors[1]); } });
    expectFieldsCount<GeneratedPalette>(smallPalette(),
        { [](auto& p) { p.source.alpha = 1; }, [](auto& p) { p.sourceName = "x"; },
            [](auto& p) { std::swap(p.monochromatic, p.tonal); },
            [](auto& p) { std::swap(p.lightTheme, p.darkTheme); },
            [](auto& p) { p.darkTheme.appearance = Appearance::light; },
            [](auto& p) { p.harmonySections.clear(); } });
    expectFieldsCount<SavedPalette>({ {}, "name", {}, red, smallPalette().tonal.colors },
        { [](auto& s) { s.id.bytes[15] = 1; }, [](auto& s) { s.name = "x"; },
            [](auto& s) { s.createdAt += std::chrono::milliseconds(1); },
            [](auto& s) { s.source = blue; }, [](auto& s) { s.colors.clear(); } });
}

} // namespace
} // namespace tintwell
