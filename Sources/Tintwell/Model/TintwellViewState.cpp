#include "TintwellViewState.h"

#include "ColorText.h"
#include "OKLCH.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tintwell {

namespace {

constexpr auto sourceID = "source";
constexpr std::size_t compactColumns = 5;
constexpr std::size_t mostColumns = 4;

/// Below this ratio two neighbouring fills are hard to tell apart.
constexpr double distinctRatio = 1.6;
constexpr double textRatio = 4.5;
constexpr double focusRatio = 3;
/// Sources greyer than this have no colour to lend to a text.
constexpr double leastTextChroma = 0.025;

constexpr RGBAColor white { 1, 1, 1, 1 };
constexpr RGBAColor black { 0, 0, 0, 1 };

CellState cellState(NamedColor color, bool compact, const std::optional<std::string>& lastCopiedID)
{
    CellState cell;
    cell.hex = color.color.hex();
    cell.compact = compact;
    cell.isCopied = lastCopiedID == color.id;
    cell.mark = readableInkOn(color.color);
    cell.namedColor = std::move(color);
    return cell;
}

SectionState sectionState(
    const PaletteSection& section, bool compact, const std::optional<std::string>& lastCopiedID)
{
    SectionState state { section.id, section.title, section.subtitle,
        compact ? compactColumns : std::min(mostColumns, section.colors.size()), {} };
    for (const auto& color : section.colors)
        state.cells.push_back(cellState(color, compact, lastCopiedID));
    return state;
}

/// Which roles an element of the mock interface tries, in order, and what is left when none is
/// there.
struct RoleChain {
    RGBAColor PreviewState::*element;
    std::array<std::string_view, 3> roles;
    RGBAColor lastResort;
};

constexpr std::array roleChains {
    RoleChain { &PreviewState::outerFill, { "Background" }, white },
    RoleChain { &PreviewState::innerFill, { "Surface", "Background" }, white },
    RoleChain { &PreviewState::outline, { "Text" }, black },
    RoleChain { &PreviewState::text, { "Text" }, black },
    RoleChain { &PreviewState::dot, { "Accent", "Primary", "Text" }, black },
    RoleChain { &PreviewState::actionText, { "On primary", "Background" }, white },
    RoleChain { &PreviewState::actionFill, { "Primary", "Text" }, black },
};

RGBAColor firstRole(const ThemePalette& palette, const RoleChain& chain)
{
    for (const auto role : chain.roles) {
        if (role.empty())
            break;
        if (const auto color = palette.colorNamed(role))
            return *color;
    }
    return chain.lastResort;
}

/// What is seen of `color` on an opaque background.
RGBAColor laidOver(const RGBAColor& background, const RGBAColor& color)
{
    const double alpha = std::clamp(color.alpha, 0.0, 1.0);
    // What no screen can show looks like the nearest that it can.
    const auto mixed = [alpha](double below, double above) {
        const double shown = std::clamp(above, 0.0, 1.0);
        return alpha == 1 ? shown : below + alpha * (shown - below);
    };
    return { mixed(background.red, color.red), mixed(background.green, color.green),
        mixed(background.blue, color.blue), 1 };
}

} // namespace

TintState tintState(
    const RGBAColor& source, const RGBAColor& windowBackground, const RGBAColor& text)
{
    TintState state;
    state.tint = laidOver(windowBackground, source);
    state.ink = readableInkOn(state.tint);
    state.hasOutline = contrastRatio(state.tint, windowBackground) < distinctRatio;
    state.text = OKLCH(state.tint).chroma < leastTextChroma
        ? text
        : ensureContrast(state.tint, windowBackground, textRatio);
    state.focusRing = ensureContrast(state.tint, windowBackground, focusRatio);
    const auto otherInk = state.ink == darkInk ? lightInk : darkInk;
    state.overlay = contrastRatio(otherInk, state.tint) < distinctRatio ? state.ink : otherInk;
    return state;
}

HeaderState headerState(const TintwellModel& model)
{
    const auto& source = model.generated().source;
    HeaderState state;
    state.source = source;
    state.name = model.generated().sourceName;
    state.hex = source.hex();
    state.isCopied = model.lastCopiedID() == sourceID;
    state.mark = readableInkOn(source);
    state.sampleTitle = model.isSampling() ? "Sampling…" : "Sample";
    state.canSample = !model.isSampling();
    state.copyTooltip = "Copy " + state.hex;
    return state;
}

std::vector<std::string> copyTexts(const RGBAColor& color, std::string_view id)
{
    return { color.hexWithAlpha(), rgbText(color), hslText(color), oklchText(color),
        customProperty(id, color) };
}

std::vector<SectionState> studioState(const TintwellModel& model)
{
    const auto& generated = model.generated();
    std::vector<SectionState> sections;
    for (const auto& section : generated.harmonySections)
        sections.push_back(sectionState(section, /*compact=*/false, model.lastCopiedID()));
    sections.push_back(
        sectionState(generated.monochromatic, /*compact=*/false, model.lastCopiedID()));
    sections.push_back(sectionState(generated.tonal, /*compact=*/true, model.lastCopiedID()));
    return sections;
}

PreviewState previewState(const ThemePalette& palette)
{
    PreviewState state;
    for (const auto& chain : roleChains)
        state.*chain.element = firstRole(palette, chain);
    return state;
}

std::string themeTitle(Appearance appearance)
{
    return appearance == Appearance::light ? "Light system" : "Dark system";
}

ThemeState themeState(const ThemePalette& palette, const std::optional<std::string>& lastCopiedID)
{
    const std::string appearance(rawValue(palette.appearance));
    ThemeState state;
    state.section
        = { appearance, themeTitle(palette.appearance), themeSubtitle, compactColumns, {} };
    state.preview = previewState(palette);
    for (const auto& role : palette.colors) {
        auto keyed = role;
        keyed.id = appearance + "." + role.id;
        state.section.cells.push_back(cellState(std::move(keyed), /*compact=*/true, lastCopiedID));
        if (role.detail && role.detail->find("contrast") != std::string::npos)
            state.contrasts.push_back(*role.detail);
    }
    return state;
}

std::vector<ThemeState> themesState(const TintwellModel& model)
{
    return { themeState(model.generated().lightTheme, model.lastCopiedID()),
        themeState(model.generated().darkTheme, model.lastCopiedID()) };
}

SavedRowState savedRowState(const SavedPalette& palette, const DateFormatter& dateText)
{
    SavedRowState state { palette.id, palette.name, dateText(palette.createdAt), {} };
    const auto count = std::min(mostStripColors, palette.colors.size());
    for (std::size_t i = 0; i < count; ++i)
        state.strip.push_back(palette.colors[i].color);
    return state;
}

SavedState savedState(const TintwellModel& model, DateFormatter dateText)
{
    const auto row = [&model, dateText = std::move(dateText)](std::size_t index) {
        const auto& all = model.savedPalettes();
        return index < all.size() ? std::optional(savedRowState(all[index], dateText))
                                  : std::nullopt;
    };
    return { model.savedPalettes().size(), row };
}

} // namespace tintwell
