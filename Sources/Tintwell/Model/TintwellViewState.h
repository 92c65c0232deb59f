// What every view shows, as plain values: the model in, texts and colours out, no toolkit.
#pragma once

#include "PaletteModels.h"
#include "TintwellModel.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tintwell {

/// The colours that controls take from the source, all opaque.
struct TintState {
    RGBAColor tint; ///< The source as the window shows it: selected segment, prominent buttons.
    RGBAColor ink; ///< Labels on the tint.
    RGBAColor text; ///< Borderless buttons on the window background.
    RGBAColor focusRing;
    RGBAColor overlay; ///< Laid over the tint while hovered or pressed.
    bool hasOutline = false; ///< The tint hardly stands out: outline it with the ink.

    bool operator==(const TintState&) const = default;
};

/// `windowBackground` and `text` are those of the appearance in which the panel is shown.
[[nodiscard]] TintState tintState(
    const RGBAColor& source, const RGBAColor& windowBackground, const RGBAColor& text);

struct HeaderState {
    RGBAColor source;
    std::string name;
    std::string hex;
    bool isCopied = false;
    RGBAColor mark; ///< The copied mark's colour.
    std::string sampleTitle;
    bool canSample = true;
    std::string copyTooltip;

    bool operator==(const HeaderState&) const = default;
};

[[nodiscard]] HeaderState headerState(const TintwellModel& model);

/// The texts that a colour can be copied as: hex, the functions of CSS, and the custom property of
/// `id`.
[[nodiscard]] std::vector<std::string> copyTexts(const RGBAColor& color, std::string_view id);

/// One swatch tile. `namedColor` is what a click copies; its id is the cell's identity.
struct CellState {
    NamedColor namedColor;
    std::string hex;
    bool compact = false;
    bool isCopied = false;
    RGBAColor mark;

    bool operator==(const CellState&) const = default;
};

struct SectionState {
    std::string id;
    std::string title;
    std::string subtitle;
    std::size_t columns = 0;
    std::vector<CellState> cells;

    bool operator==(const SectionState&) const = default;
};

/// The sections of the Studio workspace, top to bottom.
[[nodiscard]] std::vector<SectionState> studioState(const TintwellModel& model);

/// The mock interface, each element in the colour of the first role of its chain that is there.
struct PreviewState {
    RGBAColor outerFill;
    RGBAColor innerFill;
    RGBAColor outline; ///< Drawn at opacity 0.1.
    RGBAColor text; ///< The subtitle is drawn at opacity 0.72.
    RGBAColor dot;
    RGBAColor actionText;
    RGBAColor actionFill;

    bool operator==(const PreviewState&) const = default;
};

[[nodiscard]] PreviewState previewState(const ThemePalette& palette);

struct ThemeState {
    SectionState section; ///< Heading and grid; ids carry the appearance before them.
    PreviewState preview;
    std::vector<std::string> contrasts;

    bool operator==(const ThemeState&) const = default;
};

/// "Light system" or "Dark system", and what stands below both.
[[nodiscard]] std::string themeTitle(Appearance appearance);
inline constexpr auto themeSubtitle = "Semantic roles with accessible foreground pairs";

[[nodiscard]] ThemeState themeState(
    const ThemePalette& palette, const std::optional<std::string>& lastCopiedID);

/// The light theme, then the dark one.
[[nodiscard]] std::vector<ThemeState> themesState(const TintwellModel& model);

/// How many colours of a saved palette are shown in its row.
inline constexpr std::size_t mostStripColors = 12;

/// One row of the library. Rows are made one at a time, as they come into view.
struct SavedRowState {
    platform::Uuid id;
    std::string name;
    std::string date;
    std::vector<RGBAColor> strip;

    bool operator==(const SavedRowState&) const = default;
};

using DateFormatter = std::function<std::string(platform::Timestamp)>;

[[nodiscard]] SavedRowState savedRowState(
    const SavedPalette& palette, const DateFormatter& dateText);

/// The library, newest first. `row` reads the model when it is called, and gives nothing for a
/// palette that has gone by then.
struct SavedState {
    std::size_t count = 0;
    std::function<std::optional<SavedRowState>(std::size_t index)> row;
};

[[nodiscard]] SavedState savedState(const TintwellModel& model, DateFormatter dateText);

} // namespace tintwell
