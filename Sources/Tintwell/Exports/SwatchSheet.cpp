#include "SwatchSheet.h"

#include "ColorText.h"

#include <algorithm>

namespace tintwell {

namespace {

constexpr double pageWidth = 1200;
constexpr double margin = 48;
constexpr double gutter = 24;
constexpr double gap = 12;
constexpr double contentWidth = pageWidth - 2 * margin;
constexpr double columnWidth = (contentWidth - gutter) / 2;
constexpr double sourceSize = 144;
constexpr double swatchHeight = 72;
constexpr double sectionHeight = 188;
constexpr double roleSize = 44;
constexpr double roleHeight = 60;
constexpr double cardPadding = 24;

constexpr RGBAColor ink { 0.1, 0.1, 0.12, 1 };
constexpr RGBAColor faintInk { 0.4, 0.4, 0.44, 1 };

class SheetLayout {
public:
    SwatchSheet layOut(const GeneratedPalette& palette)
    {
        header(palette);
        double y = margin + sourceSize + margin;
        auto sections = palette.harmonySections;
        sections.push_back(palette.monochromatic);
        for (std::size_t at = 0; at < sections.size(); ++at) {
            const bool isLeft = at % 2 == 0;
            section(sections[at], margin + (isLeft ? 0 : columnWidth + gutter), y, columnWidth);
            if (!isLeft || at + 1 == sections.size())
                y += sectionHeight;
        }
        section(palette.tonal, margin, y, contentWidth);
        y += sectionHeight;
        const double left = card(palette.lightTheme, "Light", margin, y);
        const double right = card(palette.darkTheme, "Dark", margin + columnWidth + gutter, y);
        sheet_.width = pageWidth;
        sheet_.height = y + std::max(left, right) + margin;
        return std::move(sheet_);
    }

private:
    void box(double x, double y, double width, double height, double radius, const RGBAColor& fill)
    {
        sheet_.marks.emplace_back(SheetBox { x, y, width, height, radius, fill });
    }

    void title(double x, double baseline, double size, const RGBAColor& color, std::string text)
    {
        sheet_.marks.emplace_back(
            SheetText { x, baseline, size, true, false, color, std::move(text) });
    }

    void line(double x, double baseline, double size, const RGBAColor& color, std::string text)
    {
        sheet_.marks.emplace_back(
            SheetText { x, baseline, size, false, false, color, std::move(text) });
    }

    void hexLine(double x, double baseline, double size, const RGBAColor& color, std::string text)
    {
        sheet_.marks.emplace_back(
            SheetText { x, baseline, size, false, true, color, std::move(text) });
    }

    void header(const GeneratedPalette& palette)
    {
        box(margin, margin, sourceSize, sourceSize, 28, palette.source);
        const double x = margin + sourceSize + 32;
        title(x, margin + 56, 40, ink, palette.sourceName);
        hexLine(x, margin + 94, 24, ink, palette.source.hexWithAlpha());
        line(x, margin + 126, 15, faintInk,
            rgbText(palette.source) + " \u00B7 " + oklchText(palette.source));
    }

    void section(const PaletteSection& section, double x, double y, double width)
    {
        title(x, y + 16, 17, ink, section.title);
        line(x, y + 36, 13, faintInk, section.subtitle);
        const auto count = static_cast<double>(section.colors.size());
        const double each = (width - gap * (count - 1)) / count;
        const double top = y + 48;
        for (const auto& color : section.colors) {
            box(x, top, each, swatchHeight, gap, color.color);
            line(x, top + swatchHeight + 19, 13, ink, color.name);
            hexLine(x, top + swatchHeight + 37, 12, faintInk, color.color.hexWithAlpha());
            x += each + gap;
        }
    }

    /// Gives the card's height.
    double card(const ThemePalette& theme, std::string name, double x, double y)
    {
        const auto colorOf
            = [&theme](std::string_view role) { return theme.colorNamed(role).value_or(faintInk); };
        const auto text = colorOf("Text");
        const std::size_t rows = (theme.colors.size() + 1) / 2;
        const double height = 2 * cardPadding + 52 + roleHeight * static_cast<double>(rows);
        box(x, y, columnWidth, height, 20, colorOf("Background"));
        title(x + cardPadding, y + cardPadding + 24, 20, text, std::move(name));
        const double button = x + columnWidth - cardPadding - 104;
        box(button, y + cardPadding, 104, 36, 10, colorOf("Primary"));
        title(button + 21, y + cardPadding + 23, 14, colorOf("On primary"), "Primary");
        for (std::size_t at = 0; at < theme.colors.size(); ++at) {
            const auto& role = theme.colors[at];
            const double left = x + cardPadding + (at < rows ? 0 : columnWidth / 2);
            const double top = y + cardPadding + 60 + roleHeight * static_cast<double>(at % rows);
            box(left, top, roleSize, roleSize, gap, role.color);
            line(left + roleSize + gap, top + 19, 14, text, role.name);
            hexLine(left + roleSize + gap, top + 37, 12, text, role.color.hexWithAlpha());
        }
        return height;
    }

    SwatchSheet sheet_;
};

} // namespace

SwatchSheet swatchSheet(const GeneratedPalette& palette)
{
    return SheetLayout().layOut(palette);
}

} // namespace tintwell
