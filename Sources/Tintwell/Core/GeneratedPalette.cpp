#include "GeneratedPalette.h"

#include "Hashing.h"

#include <algorithm>
#include <unordered_set>

namespace tintwell {

namespace {

void append(std::vector<NamedColor>& list, const std::vector<NamedColor>& colors)
{
    list.insert(list.end(), colors.begin(), colors.end());
}

void appendTheme(std::vector<NamedColor>& list, const ThemePalette& theme,
    std::string_view idPrefix, std::string_view namePrefix)
{
    for (auto color : theme.colors) {
        color.id.insert(0, idPrefix);
        color.name.insert(0, namePrefix);
        list.push_back(std::move(color));
    }
}

} // namespace

std::string_view rawValue(Appearance appearance)
{
    return appearance == Appearance::light ? "light" : "dark";
}

std::optional<Appearance> appearanceFromRawValue(std::string_view text)
{
    for (const auto appearance : { Appearance::light, Appearance::dark }) {
        if (rawValue(appearance) == text)
            return appearance;
    }
    return std::nullopt;
}

std::optional<RGBAColor> ThemePalette::colorNamed(std::string_view name) const
{
    const auto role = std::find_if(
        colors.begin(), colors.end(), [name](const auto& color) { return color.name == name; });
    return role == colors.end() ? std::nullopt : std::optional(role->color);
}

std::vector<NamedColor> GeneratedPalette::allColors() const
{
    std::vector<NamedColor> list;
    list.push_back({ "source", "Source \u2014 " + sourceName, source, std::nullopt });
    for (const auto& section : harmonySections)
        append(list, section.colors);
    append(list, monochromatic.colors);
    append(list, tonal.colors);
    appendTheme(list, lightTheme, "light.", "Light \u2014 ");
    appendTheme(list, darkTheme, "dark.", "Dark \u2014 ");
    return list;
}

std::vector<NamedColor> GeneratedPalette::exportColors() const
{
    auto list = allColors();
    std::unordered_set<std::string> keys;
    std::erase_if(list, [&keys](const auto& entry) {
        return !keys.insert(entry.name + "|" + entry.color.hex()).second;
    });
    return list;
}

} // namespace tintwell

using tintwell::Hasher;

std::size_t std::hash<tintwell::NamedColor>::operator()(
    const tintwell::NamedColor& color) const noexcept
{
    Hasher hasher;
    hasher.feed(color.id).feed(color.name).feed(color.color).feed(color.detail.has_value());
    if (color.detail)
        hasher.feed(*color.detail);
    return hasher.value();
}

std::size_t std::hash<tintwell::PaletteSection>::operator()(
    const tintwell::PaletteSection& section) const noexcept
{
    return Hasher()
        .feed(section.id)
        .feed(section.title)
        .feed(section.subtitle)
        .feedList(section.colors)
        .value();
}

std::size_t std::hash<tintwell::ThemePalette>::operator()(
    const tintwell::ThemePalette& theme) const noexcept
{
    return Hasher().feed(theme.id()).feedList(theme.colors).value();
}

std::size_t std::hash<tintwell::GeneratedPalette>::operator()(
    const tintwell::GeneratedPalette& palette) const noexcept
{
    return Hasher()
        .feed(palette.source)
        .feed(palette.sourceName)
        .feedList(palette.harmonySections)
        .feed(palette.monochromatic)
        .feed(palette.tonal)
        .feed(palette.lightTheme)
        .feed(palette.darkTheme)
        .value();
}
