#include "TintwellViewState.h"

#include "Fakes.h"

#include <gtest/gtest.h>

namespace tintwell {
namespace {

using Names = std::vector<std::string>;

RGBAColor color(const char* hex)
{
    return *RGBAColor::fromHex(hex);
}

/// A model whose library is never there.
struct Scene : FakeDesktop {
    std::unique_ptr<TintwellModel> model = modelOn("/nonexistent/saved-palettes.json");
};

/// The ids of all colours that show the copied mark, top to bottom, in every workspace.
Names markedIn(const TintwellModel& model)
{
    Names ids;
    if (headerState(model).isCopied)
        ids.emplace_back("source");
    auto sections = studioState(model);
    for (const auto& theme : themesState(model))
        sections.push_back(theme.section);
    for (const auto& section : sections)
        for (const auto& cell : section.cells)
            if (cell.isCopied)
                ids.push_back(cell.namedColor.id);
    return ids;
}

TEST(HeaderState, ShowsTheSource)
{
    Scene scene;
    scene.model->apply(color("#FFFFFF"));
    auto header = headerState(*scene.model);
    EXPECT_EQ(header.source, color("#FFFFFF"));
    EXPECT_EQ(header.name, scene.model->generated().sourceName);
    EXPECT_EQ(header.hex, "#FFFFFF");
    EXPECT_EQ(header.copyTooltip, "Copy #FFFFFF");
    EXPECT_EQ(header.mark, darkInk);
    scene.model->apply(color("#000000"));
    EXPECT_EQ(headerState(*scene.model).mark, lightInk);
}

TEST(HeaderState, OffersNoSecondPickWhileOneIsOpen)
{
    Scene scene;
    const auto button = [&] {
        const auto header = headerState(*scene.model);
        return std::pair(header.sampleTitle, header.canSample);
    };
    EXPECT_EQ(button(), std::pair(std::string("Sample"), true));
    scene.model->beginSampling();
    EXPECT_EQ(button(), std::pair(std::string("Sampling\u2026"), false));
    scene.sampler->answer({});
    EXPECT_EQ(button(), std::pair(std::string("Sample"), true));
}

TEST(StudioState, LaysEverySectionOutInItsColumns)
{
    struct Case {
        const char* id;
        const char* title;
        std::size_t columns;
        std::size_t cells;
        bool compact;
    };
    const std::vector<Case> cases {
        { "complementary", "Complementary", 2, 2, false },
        { "analogous", "Analogous", 3, 3, false },
        { "split-complementary", "Split complementary", 3, 3, false },
        { "triadic", "Triadic", 3, 3, false },
        { "tetradic", "Tetradic", 4, 4, false },
        { "monochromatic", "Monochromatic", 4, 5, false },
        { "tonal", "Tonal scale", 5, 11, true },
    };
    const Scene scene;
    const auto sections = studioState(*scene.model);
    ASSERT_EQ(sections.size(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto& [id, title, columns, cells, compact] = cases[i];
        EXPECT_EQ(sections[i].id, id);
        EXPECT_EQ(sections[i].title, title);
        EXPECT_FALSE(sections[i].subtitle.empty());
        EXPECT_EQ(sections[i].columns, columns) << id;
        ASSERT_EQ(sections[i].cells.size(), cells) << id;
        for (const auto& cell : sections[i].cells) {
            EXPECT_EQ(cell.compact, compact);
            EXPECT_EQ(cell.hex, cell.namedColor.color.hex());
            EXPECT_EQ(cell.mark, readableInkOn(cell.namedColor.color));
        }
    }
    EXPECT_EQ(sections[6].cells[5].namedColor, scene.model->generated().tonal.colors[5]);
}

TEST(CopiedMark, IsOnNothingButTheColorThatWasCopied)
{
    Scene scene;
    auto& model = *scene.model;
    EXPECT_EQ(markedIn(model), Names {});
    model.copySource();
    EXPECT_EQ(markedIn(model), Names { "source" });
    for (const auto& section : studioState(model))
        for (const auto& cell : section.cells) {
            model.copy(cell.namedColor);
            EXPECT_EQ(markedIn(model), Names { cell.namedColor.id });
        }
    Names themeKeys;
    for (const auto& theme : themesState(model))
        for (const auto& cell : theme.section.cells) {
            model.copy(cell.namedColor);
            EXPECT_EQ(markedIn(model), Names { cell.namedColor.id });
            themeKeys.push_back(cell.namedColor.id);
        }
    EXPECT_EQ(themeKeys.front(), "light.background");
    EXPECT_EQ(themeKeys.back(), "dark.error");
    // A role's own id is no key: it is the same in both themes.
    model.copy(model.generated().lightTheme.colors[0]);
    EXPECT_EQ(markedIn(model), Names {});
    scene.scheduler.advance(std::chrono::seconds { 1 });
    EXPECT_EQ(markedIn(model), Names {});
}

TEST(ThemesState, ShowsTheLightThemeAboveTheDarkOne)
{
    const Scene scene;
    const auto themes = themesState(*scene.model);
    ASSERT_EQ(themes.size(), 2U);
    const auto& generated = scene.model->generated();
    const std::vector<std::tuple<const char*, const char*, ThemePalette>> cases {
        { "light", "Light system", generated.lightTheme },
        { "dark", "Dark system", generated.darkTheme },
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto& [id, title, palette] = cases[i];
        const auto& section = themes[i].section;
        EXPECT_EQ(section.id, id);
        EXPECT_EQ(section.title, title);
        EXPECT_EQ(section.subtitle, "Semantic roles with accessible foreground pairs");
        EXPECT_EQ(section.columns, 5U);
        ASSERT_EQ(section.cells.size(), 10U);
        for (std::size_t role = 0; role < 10; ++role) {
            auto expected = palette.colors[role];
            expected.id.insert(0, std::string(id) + ".");
            EXPECT_EQ(section.cells[role].namedColor, expected);
            EXPECT_TRUE(section.cells[role].compact);
        }
        EXPECT_EQ(themes[i].preview, previewState(palette));
        EXPECT_EQ(
            themes[i].contrasts, (Names { *palette.colors[2].detail, *palette.colors[4].detail }));
    }
}

TEST(ThemesState, ListsEveryDetailThatSpeaksOfContrast)
{
    ThemePalette palette;
    for (const auto& detail :
        { std::optional<std::string>("7.0:1 contrast"), {}, { "Contrast 3:1" }, { "" },
            { "low contrast, 2.0:1" }, { "7.0:1" }, { "7.0:1 contrast" } })
        palette.colors.push_back({ "id", "Role", color("#123456"), detail });
    EXPECT_EQ(themeState(palette, {}).contrasts,
        (Names { "7.0:1 contrast", "low contrast, 2.0:1", "7.0:1 contrast" }));
}

TEST(PreviewState, FallsBackAlongItsChains)
{
    const std::vector<std::pair<std::string, RGBAColor>> known {
        { "Background", color("#010000") },
        { "Surface", color("#020000") },
        { "Primary", color("#030000") },
        { "On primary", color("#040000") },
        { "Accent", color("#050000") },
        { "Text", color("#060000") },
        { "white", color("#FFFFFF") },
        { "black", color("#000000") },
        { "text", color("#070000") },
    };
    const auto nameOf = [&](const RGBAColor& shown) {
        for (const auto& [name, rgba] : known)
            if (rgba == shown)
                return name;
        return shown.hex();
    };
    struct Case {
        Names roles;
        Names outerInnerOutlineTextDotActionFill;
    };
    const std::vector<Case> cases {
        { { "Background", "Surface", "Primary", "On primary", "Accent", "Text" },
            { "Background", "Surface", "Text", "Text", "Accent", "On primary", "Primary" } },
        { { "Text", "On primary", "Primary", "Background" },
            { "Background", "Background", "Text", "Text", "Primary", "On primary", "Primary" } },
        { { "Text", "Background" },
            { "Background", "Background", "Text", "Text", "Text", "Background", "Text" } },
        { { "Surface" }, { "white", "Surface", "black", "black", "black", "white", "black" } },
        { { "Accent" }, { "white", "white", "black", "black", "Accent", "white", "black" } },
        { { "Primary" }, { "white", "white", "black", "black", "Primary", "white", "Primary" } },
        { { "text" }, { "white", "white", "black", "black", "black", "white", "black" } },
        { {}, { "white", "white", "black", "black", "black", "white", "black" } },
    };
    for (const auto& [roles, expected] : cases) {
        ThemePalette palette;
        for (const auto& role : roles)
            for (const auto& [name, rgba] : known)
                if (name == role)
                    palette.colors.push_back({ "id", name, rgba, std::nullopt });
        const auto shown = previewState(palette);
        Names names;
        for (const auto& element : { shown.outerFill, shown.innerFill, shown.outline, shown.text,
                 shown.dot, shown.actionText, shown.actionFill })
            names.push_back(nameOf(element));
        EXPECT_EQ(names, expected) << testing::PrintToString(roles);
    }
}

TEST(SavedRowState, ShowsNoMoreThanTwelveColors)
{
    const auto time = *platform::parseIso8601("2026-11-22T10:00:00Z");
    for (const auto& [count, shown] : std::vector<std::pair<std::size_t, std::size_t>> {
             { 0, 0 }, { 3, 3 }, { 12, 12 }, { 13, 12 }, { 40, 12 } }) {
        SavedPalette palette { platform::Uuid { { 7 } }, "Violet", time, {}, {} };
        std::vector<RGBAColor> strip;
        for (std::size_t i = 0; i < count; ++i) {
            const RGBAColor band { 0.01 * static_cast<double>(i), 0, 0, 0.5 };
            palette.colors.push_back({ "same", "Same", band, std::nullopt });
            if (i < shown)
                strip.push_back(band);
        }
        const auto row = savedRowState(palette,
            [](platform::Timestamp moment) { return "at " + platform::formatIso8601(moment); });
        EXPECT_EQ(row, (SavedRowState { palette.id, "Violet", "at 2026-11-22T10:00:00Z", strip }));
    }
}

/// The window background and the text colour of both appearances.
struct Window {
    const char* name;
    RGBAColor background;
    RGBAColor text;
};

const std::vector<Window> windows {
    { "light", color("#F7F7F8"), color("#18181B") },
    { "dark", color("#232326"), color("#F5F5F7") },
};

enum class From { source, repaired, windowText };

TEST(TintState, FollowsFromTheSourceAndTheWindow)
{
    struct Shown {
        bool hasOutline;
        From text;
        From focusRing;
    };
    struct Case {
        const char* source;
        RGBAColor ink;
        bool overlayIsInk;
        Shown onLight;
        Shown onDark;
    };
    using enum From;
    const std::vector<Case> cases {
        { "#6E56CF", lightInk, false, { false, source, source }, { false, repaired, repaired } },
        { "#F2C14E", darkInk, false, { true, repaired, repaired }, { false, source, source } },
        { "#0A0A0D", lightInk, true, { false, windowText, source },
            { true, windowText, repaired } },
        { "#F6F5F2", darkInk, true, { true, windowText, repaired }, { false, windowText, source } },
        { "#777777", darkInk, false, { false, windowText, source }, { false, windowText, source } },
        { "#00FF0000", darkInk, true, { true, windowText, repaired }, {} },
    };
    for (const auto& [hex, ink, overlayIsInk, onLight, onDark] : cases) {
        for (std::size_t i = 0; i < windows.size(); ++i) {
            const auto& window = windows[i];
            const auto& shown = i == 0 ? onLight : onDark;
            const auto tint = tintState(color(hex), window.background, window.text);
            const bool isOpaque = color(hex).alpha == 1;
            if (!isOpaque && i == 1)
                continue;
            SCOPED_TRACE(std::string(hex) + " on " + window.name);
            EXPECT_EQ(tint.tint, isOpaque ? color(hex) : window.background);
            EXPECT_EQ(tint.ink, ink);
            EXPECT_EQ(tint.overlay == tint.ink, overlayIsInk);
            EXPECT_EQ(tint.hasOutline, shown.hasOutline);
            const auto origin = [&](const RGBAColor& made) {
                if (made == window.text)
                    return windowText;
                return made == tint.tint ? source : repaired;
            };
            EXPECT_EQ(origin(tint.text), shown.text);
            EXPECT_EQ(origin(tint.focusRing), shown.focusRing);
        }
    }
}

/// Whatever the source: what is drawn can be seen and read.
TEST(TintState, StaysReadableForEverySource)
{
    std::vector<RGBAColor> sources;
    for (const double red : { 0.0, 0.25, 0.5, 0.75, 1.0 })
        for (const double green : { 0.0, 0.25, 0.5, 0.75, 1.0 })
            for (const double blue : { 0.0, 0.25, 0.5, 0.75, 1.0 })
                for (const double alpha : { 0.0, 0.4, 1.0 })
                    sources.emplace_back(red, green, blue, alpha);
    for (const auto& window : windows)
        for (const auto& source : sources) {
            const auto tint = tintState(source, window.background, window.text);
            SCOPED_TRACE(source.hex() + " on " + window.name);
            EXPECT_GE(contrastRatio(tint.ink, tint.tint), 4.4);
            EXPECT_GE(contrastRatio(tint.text, window.background), 4.5);
            EXPECT_GE(contrastRatio(tint.focusRing, window.background), 3);
            EXPECT_GE(contrastRatio(tint.overlay, tint.tint), 1.6);
            for (const auto& drawn : { tint.tint, tint.text, tint.focusRing, tint.overlay })
                EXPECT_EQ(drawn.alpha, 1);
        }
}

} // namespace
} // namespace tintwell
