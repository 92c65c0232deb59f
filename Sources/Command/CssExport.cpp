#include "CssExport.h"

#include <string_view>
#include <utility>
#include <vector>

namespace tintwell {

namespace {

/// Lower-case ASCII letters, digits and hyphens: part of an identifier for every reader.
std::string identifier(std::string_view id)
{
    std::string text;
    for (const char character : id) {
        const bool isUpper = character >= 'A' && character <= 'Z';
        const bool isPlain
            = (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9');
        text += isUpper ? static_cast<char>(character - 'A' + 'a') : isPlain ? character : '-';
    }
    return text;
}

std::string declarations(const std::vector<NamedColor>& colors, std::string_view indent)
{
    std::string text;
    for (const auto& color : colors)
        text.append(indent)
            .append("--tintwell-")
            .append(identifier(color.id))
            .append(": ")
            .append(color.color.hexWithAlpha())
            .append(";\n");
    return text;
}

std::string rule(std::string_view selector, const std::string& body, std::string_view indent)
{
    return std::string(indent) + std::string(selector) + " {\n" + body + std::string(indent)
        + "}\n";
}

} // namespace

std::string cssProperties(const GeneratedPalette& palette)
{
    std::vector<NamedColor> shared;
    std::vector<NamedColor> light;
    std::vector<NamedColor> dark;
    for (auto& color : palette.exportColors()) {
        auto* group = &shared;
        for (const auto& [prefix, theme] :
            { std::pair("light.", &light), std::pair("dark.", &dark) }) {
            if (!color.id.starts_with(prefix))
                continue;
            color.id.erase(0, std::string_view(prefix).size());
            group = theme;
        }
        group->push_back(std::move(color));
    }

    const auto darkInMedia
        = rule(R"(:root:not([data-theme="light"]))", declarations(dark, "    "), "  ");
    return "/* " + palette.sourceName + ", " + palette.source.hex() + " */\n"
        + rule(":root", declarations(shared, "  "), "") + "\n"
        + rule(":root,\n[data-theme=\"light\"]", declarations(light, "  "), "") + "\n"
        + rule("@media (prefers-color-scheme: dark)", darkInMedia, "") + "\n"
        + rule("[data-theme=\"dark\"]", declarations(dark, "  "), "");
}

} // namespace tintwell
