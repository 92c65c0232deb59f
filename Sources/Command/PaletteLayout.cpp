#include "PaletteLayout.h"

#include "NumberText.h"
#include "OKLCH.h"
#include "TintwellViewState.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tintwell {

namespace {

constexpr int margin = 2;
constexpr int tileGap = 2;
constexpr int narrowestTile = 10;
/// Wider terminals gain nothing from wider blocks.
constexpr int widestLayout = 100;
/// Two cards of a theme need this much.
constexpr int narrowestForSideBySide = 74;
constexpr int sourceBlock = 14;

using Lines = std::vector<std::string>;

std::string spaces(int count)
{
    return std::string(static_cast<std::size_t>(std::max(count, 0)), ' ');
}

/// The source in the space in which its palette is made, as a style sheet would write it.
std::string coordinates(const RGBAColor& source)
{
    const OKLCH color(source);
    const auto alpha = source.alpha == 1 ? "" : " / " + fixedPoint(source.alpha, 2);
    return "oklch(" + fixedPoint(color.lightness * 100, 1) + "% " + fixedPoint(color.chroma, 3)
        + " " + fixedPoint(color.hue, 1) + alpha + ")";
}

/// Where a line stands in a swatch of several, for the edge.
enum class Row { only, top, middle, bottom };

bool isNear(const RGBAColor& a, const RGBAColor& b)
{
    constexpr double hardlyDistinct = 1.15;
    return contrastRatio(a, b) < hardlyDistinct;
}

/// Terminals do not tell their background; most are black to dark grey or nearly white.
bool isLostOnTerminal(const RGBAColor& fill)
{
    constexpr double darkGrey = 0.035; // #343434
    return fill.relativeLuminance() < darkGrey || isNear(fill, { 1, 1, 1, 1 });
}

/// One line of a swatch; one that is lost on what lies behind it gets an edge.
std::string swatchRow(const RGBAColor& fill, int width, Row row, bool isLost)
{
    if (!isLost || width < 1)
        return painted(spaces(width), { .fill = fill });
    struct Edge {
        std::string_view left;
        std::string_view inside;
        std::string_view right;
    };
    constexpr std::array edges { Edge { "▏", " ", "▕" }, Edge { "┌", "─", "┐" },
        Edge { "│", " ", "│" }, Edge { "└", "─", "┘" } };
    const auto& edge = edges.at(static_cast<std::size_t>(row));
    std::string text(width > 1 ? edge.left : "│");
    for (int at = 2; at < width; ++at)
        text += edge.inside;
    text += width > 1 ? edge.right : "";
    return painted(text, { .ink = RGBAColor(0.5, 0.5, 0.5, 1), .fill = fill });
}

struct Group {
    std::string title;
    std::string subtitle;
    const std::vector<NamedColor>& colors;
};

std::vector<Group> sectionGroups(const GeneratedPalette& palette)
{
    std::vector<Group> groups;
    for (const auto& section : palette.harmonySections)
        groups.push_back({ section.title, section.subtitle, section.colors });
    for (const auto* section : { &palette.monochromatic, &palette.tonal })
        groups.push_back({ section->title, section->subtitle, section->colors });
    return groups;
}

std::string joined(const Lines& lines)
{
    std::string text;
    for (const auto& line : lines)
        text += line + "\n";
    return text;
}

bool fitsBeside(std::string_view left, std::string_view right, int width)
{
    return displayWidth(left) + 2 + displayWidth(right) <= width;
}

// Plain text

std::string plainLayout(const GeneratedPalette& palette, int width)
{
    auto groups = sectionGroups(palette);
    for (const auto* theme : { &palette.lightTheme, &palette.darkTheme })
        groups.push_back({ themeTitle(theme->appearance), themeSubtitle, theme->colors });

    int nameWidth = 0;
    for (const auto& group : groups)
        for (const auto& color : group.colors)
            nameWidth = std::max(nameWidth, displayWidth(color.name));

    Lines lines { palette.sourceName + "  " + palette.source.hex() };
    const auto place = coordinates(palette.source);
    if (fitsBeside(lines.back(), place, width))
        lines.back() += "  " + place;
    else
        lines.push_back(place);
    for (const auto& group : groups) {
        lines.push_back("");
        lines.push_back(group.title);
        if (fitsBeside(group.title, group.subtitle, width))
            lines.back() += "  " + group.subtitle;
        for (const auto& color : group.colors)
            lines.push_back("  " + fitted(color.name, nameWidth) + "  " + color.color.hex()
                + (color.detail ? "  " + *color.detail : ""));
    }
    return joined(lines);
}

// Blocks

Lines sourceHeader(const GeneratedPalette& palette, int width)
{
    const int side = width < narrowestForSideBySide ? sourceBlock / 2 : sourceBlock;
    const int room = width - side - tileGap;
    const auto block = [&](Row row) {
        return spaces(margin)
            + swatchRow(palette.source, side, row, isLostOnTerminal(palette.source))
            + spaces(tileGap);
    };
    return { block(Row::top),
        block(Row::middle) + painted(fitted(palette.sourceName, room), { .bold = true }),
        block(Row::middle) + palette.source.hex(),
        block(Row::middle) + painted(fitted(coordinates(palette.source), room), { .faint = true }),
        block(Row::bottom) };
}

/// A title with what is said about it where there is room for both.
std::string heading(std::string_view title, std::string_view subtitle, int width)
{
    const auto shown = spaces(margin) + painted(title, { .bold = true });
    return fitsBeside(title, subtitle, width) ? shown + "  " + painted(subtitle, { .faint = true })
                                              : shown;
}

/// A detail that only repeats the name, as in "500" and "Tone 500", is not worth its place.
std::string shownDetail(const NamedColor& color)
{
    return color.detail && !color.detail->ends_with(color.name) ? *color.detail : "";
}

/// How many tiles of `colors` stand side by side: as few rows as fit, as even as they can be.
std::size_t tileColumns(const std::vector<NamedColor>& colors, int width)
{
    int narrowest = narrowestTile;
    for (const auto& color : colors)
        narrowest = std::max(narrowest, displayWidth(color.name));
    const int count = std::max(static_cast<int>(colors.size()), 1);
    const int most = std::max((width + tileGap) / (narrowest + tileGap), 1);
    const int rows = (count + most - 1) / most;
    return static_cast<std::size_t>((count + rows - 1) / rows);
}

/// Tiles that share a width to its last cell.
struct TileRow {
    std::vector<NamedColor> colors;
    std::vector<int> widths;

    /// What `cell` gives for each colour and its width, side by side.
    template <typename Cell> [[nodiscard]] std::string line(const Cell& cell) const
    {
        auto text = spaces(margin);
        for (std::size_t at = 0; at < colors.size(); ++at)
            text += (at == 0 ? "" : spaces(tileGap)) + cell(colors[at], widths[at]);
        return text;
    }
};

TileRow tileRow(
    const std::vector<NamedColor>& colors, std::size_t first, std::size_t columns, int width)
{
    TileRow row;
    const int shared = width + tileGap;
    const int count = static_cast<int>(columns);
    for (int at = 0; at < count && first < colors.size(); ++at, ++first) {
        row.colors.push_back(colors[first]);
        row.widths.push_back(shared * (at + 1) / count - shared * at / count - tileGap);
    }
    return row;
}

void appendTiles(Lines& lines, const TileRow& row)
{
    bool detailBeside = true;
    for (std::size_t at = 0; at < row.colors.size(); ++at) {
        const auto label = row.colors[at].color.hex() + "  " + shownDetail(row.colors[at]);
        detailBeside = detailBeside && displayWidth(label) <= row.widths[at];
    }
    for (const auto edge : { Row::top, Row::bottom })
        lines.push_back(row.line([edge](const NamedColor& color, int width) {
            return swatchRow(color.color, width, edge, isLostOnTerminal(color.color));
        }));
    lines.push_back(
        row.line([](const NamedColor& color, int width) { return fitted(color.name, width); }));
    lines.push_back(row.line([&](const NamedColor& color, int width) {
        const auto detail = detailBeside ? "  " + shownDetail(color) : "";
        return painted(fitted(color.color.hex() + detail, width), { .faint = true });
    }));
    if (!detailBeside)
        lines.push_back(row.line([](const NamedColor& color, int width) {
            return painted(fitted(shownDetail(color), width), { .faint = true });
        }));
}

Lines sectionBlocks(const Group& group, int width)
{
    Lines lines { "", heading(group.title, group.subtitle, width) };
    const auto columns = tileColumns(group.colors, width);
    for (std::size_t first = 0; first < group.colors.size(); first += columns) {
        if (first > 0)
            lines.push_back("");
        appendTiles(lines, tileRow(group.colors, first, columns, width));
    }
    return lines;
}

// Themes

RGBAColor role(const ThemePalette& theme, std::string_view name)
{
    return theme.colorNamed(name).value_or(
        theme.appearance == Appearance::light ? lightInk : darkInk);
}

/// The theme at work: text on its surface, a button in its primary colour.
std::string preview(const ThemePalette& theme, int width)
{
    constexpr std::string_view button = "  Action  ";
    const int edge = 2;
    const int inner = width - 2 * edge;
    const auto background = role(theme, "Background");
    const auto surface = role(theme, "Surface");
    const auto text = "  " + themeTitle(theme.appearance);
    return painted(spaces(edge), { .fill = background })
        + painted(fitted(text, inner - displayWidth(button) - edge),
            { .ink = role(theme, "Text"), .fill = surface, .bold = true })
        + painted(button,
            { .ink = role(theme, "On primary"), .fill = role(theme, "Primary"), .bold = true })
        + painted(spaces(edge), { .fill = surface })
        + painted(spaces(edge), { .fill = background });
}

/// `ink` on `fill`, one third of the way into it: for what is said more quietly.
RGBAColor quiet(const RGBAColor& ink, const RGBAColor& fill)
{
    const auto mixed = [](double a, double b) { return a + (b - a) / 3; };
    return { mixed(ink.red, fill.red), mixed(ink.green, fill.green), mixed(ink.blue, fill.blue),
        1 };
}

/// A card in the theme's own colours, every line `width` cells wide.
Lines themeCard(const ThemePalette& theme, int width)
{
    const auto background = role(theme, "Background");
    const Paint writing { .ink = role(theme, "Text"), .fill = background };
    const Paint caption { .ink = quiet(*writing.ink, background), .fill = background };
    const auto blank = painted(spaces(width), { .fill = background });
    const auto side = painted("  ", { .fill = background });
    const auto air = side + painted(spaces(width - 4), { .fill = role(theme, "Surface") }) + side;
    Lines lines { blank, air, preview(theme, width), air, blank };
    for (const auto& color : theme.colors) {
        const auto swatchInCard
            = side + swatchRow(color.color, 4, Row::only, isNear(color.color, background));
        auto label = "  " + fitted(color.name, 10);
        label.append("  ").append(color.color.hex()).append("  ");
        const auto detail = color.detail.value_or("");
        const int left = width - 6 - displayWidth(label);
        // The longest caption decides, so that both cards are equally high.
        const bool beside = detail.empty() || left > displayWidth("21.0:1 contrast");
        lines.push_back(swatchInCard);
        lines.back() += painted(label, writing);
        lines.back() += painted(fitted(beside ? detail : "", left), caption);
        if (beside)
            continue;
        lines.push_back(swatchInCard);
        lines.back() += painted("  ", caption);
        lines.back() += painted(fitted(detail, width - 8), caption);
    }
    lines.push_back(blank);
    return lines;
}

Lines themeCards(const GeneratedPalette& palette, int width)
{
    Lines lines { "", heading("Themes", themeSubtitle, width) };
    const bool sideBySide = width >= narrowestForSideBySide;
    const int cardWidth = sideBySide ? (width - tileGap) / 2 : width;
    const auto light = themeCard(palette.lightTheme, cardWidth);
    const auto dark = themeCard(palette.darkTheme, cardWidth);
    if (sideBySide) {
        for (std::size_t at = 0; at < light.size(); ++at)
            lines.push_back(
                spaces(margin).append(light[at]).append(spaces(tileGap)).append(dark[at]));
        return lines;
    }
    for (const auto* card : { &light, &dark }) {
        if (card == &dark)
            lines.emplace_back();
        for (const auto& line : *card)
            lines.push_back(spaces(margin).append(line));
    }
    return lines;
}

std::string blockLayout(const GeneratedPalette& palette, int columns)
{
    const int width = std::clamp(columns, narrowestLayout, widestLayout) - 2 * margin;
    auto text = "\n" + joined(sourceHeader(palette, width));
    for (const auto& group : sectionGroups(palette))
        text += joined(sectionBlocks(group, width));
    return text + joined(themeCards(palette, width)) + "\n";
}

} // namespace

std::string paletteLayout(const GeneratedPalette& palette, const Terminal& terminal)
{
    if (terminal.hasColors())
        return blockLayout(palette, terminal.columns);
    return plainLayout(palette,
        terminal.isTerminal ? std::max(terminal.columns, narrowestLayout)
                            : std::numeric_limits<int>::max());
}

std::string swatch(const RGBAColor& fill, int width)
{
    return swatchRow(fill, width, Row::only, isLostOnTerminal(fill));
}

std::string colorStrip(const std::vector<NamedColor>& colors, int columns)
{
    const auto count = std::min(colors.size(), mostStripColors);
    if (count == 0)
        return "";
    const int cells = std::max(columns / static_cast<int>(count), 1);
    std::string strip;
    for (std::size_t at = 0; at < count; ++at)
        strip += swatch(colors[at].color, cells);
    return strip;
}

} // namespace tintwell
