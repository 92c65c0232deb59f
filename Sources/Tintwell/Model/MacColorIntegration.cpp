#include "MacColorIntegration.h"

#include "ColorText.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace tintwell {

namespace {

/// The keys under which the colours of one list are stored.
class UsedNames {
public:
    /// `base`, or the first of `base` followed by " 2", " 3" and so on that is not in use yet.
    std::string uniqueKey(const std::string& base)
    {
        const std::string& first = base.empty() ? "Color" : base;
        if (names_.insert(first).second)
            return first;
        // A name stays in use, so that what was tried before need not be tried again.
        auto& number = numbers_.try_emplace(first, 2).first->second;
        for (;;)
            if (auto key = first + " " + std::to_string(number++); names_.insert(key).second)
                return key;
    }

private:
    std::unordered_set<std::string> names_;
    std::unordered_map<std::string, std::size_t> numbers_;
};

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
    UsedNames usedNames;
    for (const auto& color : colors)
        list.setColor(toPlatformColor(color.color), usedNames.uniqueKey(color.name));
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
    publication_ = {};
    if (colors.empty())
        return TintwellError::emptyPalette();

    if (!destination && !mayFill(name))
        return TintwellError::colorListNotEditable(name);
    // Nothing of a list that is there stays.
    platform::ColorList list(name);
    fillColorList(list, colors);

    if (destination)
        return writeTo(*destination, list);
    auto written = registry_.write(list);
    if (!written)
        return written;
    auto published = publisher_.publish(list);
    if (!published)
        return published.error();
    publication_ = std::move(published).value();
    return written;
}

bool MacColorListInstaller::mayFill(const std::string& name) const
{
    const auto lists = registry_.availableColorLists();
    return std::none_of(lists.begin(), lists.end(),
        [&](const auto& list) { return list.name() == name && !list.isEditable(); });
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
    const auto written = colorFromText(content.text);
    const auto carried = content.color ? fromPlatformColor(*content.color) : std::nullopt;
    // The text that goes beside a colour leaves its alpha out.
    if (written && carried && written->hex() == carried->hex() && written->alpha == 1)
        return carried;
    return written ? written : carried;
}

} // namespace tintwell
