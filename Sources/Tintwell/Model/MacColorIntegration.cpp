#include "MacColorIntegration.h"

#include <set>
#include <utility>

namespace tintwell {

namespace {

/// The key under which one colour of a list is stored: `base`, or the first of `base` followed by
/// " 2", " 3" and so on that is not in `usedNames` yet. Adds it there.
std::string uniqueKey(const std::string& base, std::set<std::string>& usedNames)
{
    const std::string& first = base.empty() ? "Color" : base;
    std::string key = first;
    for (std::size_t number = 2; !usedNames.insert(key).second; ++number)
        key = first + " " + std::to_string(number);
    return key;
}

} // namespace

platform::Color toPlatformColor(const RGBAColor& color)
{
    return { color.red, color.green, color.blue, color.alpha };
}

std::optional<RGBAColor> fromPlatformColor(const platform::Color& color)
{
    const auto converted = platform::inSRGB(color);
    if (!converted)
        return std::nullopt;
    return RGBAColor(converted->red, converted->green, converted->blue, converted->alpha);
}

void fillColorList(platform::ColorList& list, const std::vector<NamedColor>& colors)
{
    std::set<std::string> usedNames;
    for (const auto& color : colors)
        list.setColor(toPlatformColor(color.color), uniqueKey(color.name, usedNames));
}

platform::Error TintwellError::colorListNotEditable(const std::string& name)
{
    return { "The existing " + name + " color list cannot be edited." };
}

platform::Error TintwellError::emptyPalette()
{
    return { "The palette has no colors to install." };
}

MacColorListInstaller::MacColorListInstaller(
    platform::ColorListRegistry registry, platform::PalettePublisher publisher)
    : registry_(std::move(registry))
    , publisher_(std::move(publisher))
{
}

platform::Result<std::filesystem::path> MacColorListInstaller::install(const std::string& name,
    const std::vector<NamedColor>& colors, const std::optional<std::filesystem::path>& destination)
{
    if (colors.empty())
        return TintwellError::emptyPalette();

    auto list = listToFill(name, destination.has_value());
    if (!list)
        return list.error();
    fillColorList(list.value(), colors);

    if (destination)
        return writeTo(*destination, list.value());
    auto written = registry_.write(list.value());
    if (!written)
        return written;
    if (const auto published = publisher_.publish(list.value()); !published)
        return published.error();
    return written;
}

platform::Result<platform::ColorList> MacColorListInstaller::listToFill(
    const std::string& name, bool isNew) const
{
    if (isNew)
        return platform::ColorList(name);
    for (auto& list : registry_.availableColorLists()) {
        if (list.name() != name)
            continue;
        if (!list.isEditable())
            return TintwellError::colorListNotEditable(name);
        for (const auto& key : list.allKeys())
            list.removeColorWithKey(key);
        return std::move(list);
    }
    return platform::ColorList(name);
}

platform::Result<std::filesystem::path> MacColorListInstaller::writeTo(
    const std::filesystem::path& destination, const platform::ColorList& list) const
{
    if (destination.empty())
        return platform::Error { "The color list has no file to be saved in" };
    if (destination.has_filename())
        return registry_.write(list, destination);
    const auto file = platform::colorListFileName(list.name());
    if (!file)
        return file.error();
    return registry_.write(list, destination / file.value());
}

void ColorPasteboard::write(const NamedColor& color, platform::Pasteboard& pasteboard)
{
    pasteboard.write(content(color.color));
}

platform::ColorContent ColorPasteboard::content(const RGBAColor& color)
{
    return { toPlatformColor(color), color.hex() };
}

std::optional<RGBAColor> fromPastedContent(const platform::PastedContent& content)
{
    const auto named = RGBAColor::fromHex(content.text);
    return named || !content.color ? named : fromPlatformColor(*content.color);
}

} // namespace tintwell
