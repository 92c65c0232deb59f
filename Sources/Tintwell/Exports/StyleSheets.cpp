#include "StyleSheets.h"

#include "ColorText.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace tintwell {

namespace {

/// Writes the rules of one sheet, all its colours in one notation.
class Sheet {
public:
    explicit Sheet(ColorNotation notation)
        : notation_(notation)
    {
    }

    [[nodiscard]] std::string value(const RGBAColor& color) const
    {
        return notation_ == ColorNotation::hex ? color.hexWithAlpha() : oklchText(color);
    }

    [[nodiscard]] std::string properties(
        const std::vector<NamedColor>& colors, std::string_view indent) const
    {
        std::string text;
        for (const auto& color : colors)
            text.append(indent)
                .append(customPropertyName(color.id))
                .append(": ")
                .append(value(color.color))
                .append(";\n");
        return text;
    }

    /// The roles of both themes, as the reader prefers or a `data-theme` attribute says.
    [[nodiscard]] std::string themes(const GeneratedPalette& palette) const
    {
        const auto darkInMedia
            = rule(R"(:root:not([data-theme="light"]))", roles(palette.darkTheme, "    "), "  ");
        return rule(":root,\n[data-theme=\"light\"]", roles(palette.lightTheme, "  ")) + "\n"
            + rule("@media (prefers-color-scheme: dark)", darkInMedia) + "\n"
            + rule("[data-theme=\"dark\"]", roles(palette.darkTheme, "  "));
    }

    [[nodiscard]] static std::string rule(
        std::string_view selector, const std::string& body, std::string_view indent = "")
    {
        return std::string(indent) + std::string(selector) + " {\n" + body + std::string(indent)
            + "}\n";
    }

private:
    /// `color-scheme` gives form controls and scroll bars the theme's look too.
    [[nodiscard]] std::string roles(const ThemePalette& theme, std::string_view indent) const
    {
        return std::string(indent) + "color-scheme: " + std::string(theme.id()) + ";\n"
            + properties(theme.colors, indent);
    }

    ColorNotation notation_;
};

std::string heading(const GeneratedPalette& palette)
{
    return "/* " + palette.sourceName + ", " + palette.source.hex() + " */\n";
}

} // namespace

std::string cssText(const GeneratedPalette& palette, ColorNotation notation)
{
    auto shared = palette.allColors();
    std::erase_if(shared, [](const NamedColor& color) {
        return color.id.starts_with("light.") || color.id.starts_with("dark.");
    });
    const Sheet sheet(notation);
    return heading(palette) + Sheet::rule(":root", sheet.properties(shared, "  ")) + "\n"
        + sheet.themes(palette);
}

std::string tailwindText(const GeneratedPalette& palette, ColorNotation notation)
{
    const Sheet sheet(notation);
    std::string tones;
    for (const auto& tone : palette.tonal.colors)
        tones += "  --color-brand-" + tone.id.substr(tone.id.find('.') + 1) + ": "
            + sheet.value(tone.color) + ";\n";
    // Inline, so that an element with a theme of its own gets that theme's colours.
    std::string roles;
    for (const auto& role : palette.lightTheme.colors)
        roles += "  --color-" + role.id + ": var(" + customPropertyName(role.id) + ");\n";
    return heading(palette) + Sheet::rule("@theme", tones) + "\n"
        + Sheet::rule("@theme inline", roles) + "\n" + sheet.themes(palette);
}

std::string scssText(const GeneratedPalette& palette, ColorNotation notation)
{
    const Sheet sheet(notation);
    std::string text = heading(palette) + "$tintwell: (\n";
    for (const auto& color : palette.allColors()) {
        auto key = color.id;
        std::replace(key.begin(), key.end(), '.', '-');
        text += "  \"" + key + "\": " + sheet.value(color.color) + ",\n";
    }
    return text + ");\n";
}

} // namespace tintwell
