#include "CssExport.h"

#include "ColorText.h"

#include <string_view>
#include <vector>

namespace tintwell {

namespace {

std::string declarations(const std::vector<NamedColor>& colors, std::string_view indent)
{
    std::string text;
    for (const auto& color : colors)
        text.append(indent).append(customProperty(color.id, color.color)).append("\n");
    return text;
}

/// `color-scheme` gives form controls and scroll bars the theme's look too.
std::string declarations(const ThemePalette& theme, std::string_view indent)
{
    return std::string(indent) + "color-scheme: " + std::string(theme.id()) + ";\n"
        + declarations(theme.colors, indent);
}

std::string rule(std::string_view selector, const std::string& body, std::string_view indent)
{
    return std::string(indent) + std::string(selector) + " {\n" + body + std::string(indent)
        + "}\n";
}

} // namespace

std::string cssProperties(const GeneratedPalette& palette)
{
    auto shared = palette.allColors();
    std::erase_if(shared, [](const NamedColor& color) {
        return color.id.starts_with("light.") || color.id.starts_with("dark.");
    });
    const auto darkInMedia
        = rule(R"(:root:not([data-theme="light"]))", declarations(palette.darkTheme, "    "), "  ");
    return "/* " + palette.sourceName + ", " + palette.source.hex() + " */\n"
        + rule(":root", declarations(shared, "  "), "") + "\n"
        + rule(":root,\n[data-theme=\"light\"]", declarations(palette.lightTheme, "  "), "") + "\n"
        + rule("@media (prefers-color-scheme: dark)", darkInMedia, "") + "\n"
        + rule("[data-theme=\"dark\"]", declarations(palette.darkTheme, "  "), "");
}

} // namespace tintwell
