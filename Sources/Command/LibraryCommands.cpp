#include "LibraryCommands.h"

#include "JsonDocument.h"
#include "PaletteGenerator.h"
#include "PaletteLayout.h"
#include "TintwellViewState.h"

#include <algorithm>

namespace tintwell {

namespace {

constexpr int longestNameColumn = 24;
constexpr int longestStrip = 36;
constexpr std::size_t shortestId = 8;

bool hasPrefix(const SavedPalette& palette, std::string_view prefix)
{
    const auto id = palette.id.text();
    return prefix.size() <= id.size()
        && std::equal(prefix.begin(), prefix.end(), id.begin(), [](char typed, char own) {
               const bool isLower = typed >= 'a' && typed <= 'z';
               return (isLower ? static_cast<char>(typed - 'a' + 'A') : typed) == own;
           });
}

platform::Result<std::vector<SavedPalette>> load(PalettePersistence& library)
{
    auto palettes = library.load();
    if (!palettes)
        return platform::Error { "Saved palettes could not be loaded: "
            + palettes.error().description };
    return palettes;
}

/// Makes one change to the newest list of the library and writes it. `change` answers with the
/// error that keeps it from being made.
template <typename Change>
platform::Result<void> edit(
    PalettePersistence& library, const std::string& failure, const Change& change)
{
    // A library that cannot be read stays as it is: only its owner can tell what it is worth.
    auto palettes = load(library);
    if (!palettes)
        return palettes.error();
    auto edit = library.beginEdit();
    if (!edit)
        return platform::Error { failure + edit.error().description };
    auto list = edit.value().changedElsewhere().value_or(std::move(palettes).value());
    if (platform::Result<void> changed = change(list); !changed)
        return changed;
    if (const auto saved = edit.value().save(list); !saved)
        return platform::Error { failure + saved.error().description };
    return {};
}

std::size_t sharedLength(const std::string& a, const std::string& b)
{
    const auto end = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return static_cast<std::size_t>(end.first - a.begin());
}

/// How much of each id tells it from all others.
std::size_t idLength(const std::vector<SavedPalette>& palettes)
{
    std::vector<std::string> ids;
    ids.reserve(palettes.size());
    for (const auto& palette : palettes)
        ids.push_back(palette.id.text());
    std::sort(ids.begin(), ids.end());
    std::size_t length = shortestId;
    for (std::size_t at = 1; at < ids.size(); ++at)
        length = std::max(length, sharedLength(ids[at - 1], ids[at]) + 1);
    return length;
}

std::string hexStrip(const std::vector<NamedColor>& colors)
{
    std::string strip;
    for (std::size_t at = 0; at < std::min(colors.size(), mostStripColors); ++at)
        strip += (at == 0 ? "" : " ") + colors[at].color.hex();
    return strip;
}

} // namespace

platform::Result<SavedPalette> findSaved(
    const std::vector<SavedPalette>& palettes, std::string_view prefix)
{
    const SavedPalette* found = nullptr;
    std::size_t count = 0;
    for (const auto& palette : palettes) {
        if (prefix.empty() || !hasPrefix(palette, prefix))
            continue;
        // A library edited by hand may hold an id twice; it still names one thing.
        if (found != nullptr && found->id == palette.id)
            continue;
        found = found == nullptr ? &palette : found;
        ++count;
    }
    if (count == 0)
        return platform::Error { "No saved palette has an id that begins with "
            + inQuotes(prefix) };
    if (count > 1)
        return platform::Error { std::to_string(count)
            + " saved palettes have an id that begins with " + inQuotes(prefix)
            + "; write more of it" };
    return *found;
}

Report saveColor(PalettePersistence& library, const RGBAColor& source, platform::Uuid id,
    platform::Timestamp now)
{
    const auto palette = PaletteGenerator().generate(source);
    const SavedPalette saved { id, palette.sourceName, now, source, palette.exportColors() };
    const auto done = edit(library, "Save failed: ", [&](std::vector<SavedPalette>& list) {
        list.insert(list.begin(), saved);
        return platform::Result<void>();
    });
    if (!done)
        return Report::failure(done.error().description);
    return Report::printed("Saved " + saved.name + " · " + source.hex() + " · " + id.text() + "\n");
}

Report deleteSaved(PalettePersistence& library, std::string_view prefix)
{
    std::string name;
    const auto done = edit(
        library, "Delete failed: ", [&](std::vector<SavedPalette>& list) -> platform::Result<void> {
            const auto found = findSaved(list, prefix);
            if (!found)
                return found.error();
            name = found.value().name;
            std::erase_if(list, [&](const auto& other) { return other.id == found.value().id; });
            return {};
        });
    if (!done)
        return Report::failure(done.error().description);
    return Report::printed("Deleted " + printable(name) + "\n");
}

platform::Result<SavedPalette> loadSaved(PalettePersistence& library, std::string_view prefix)
{
    const auto palettes = load(library);
    if (!palettes)
        return palettes.error();
    return findSaved(palettes.value(), prefix);
}

Report listSaved(PalettePersistence& library, ListFormat format, const Terminal& terminal)
{
    const auto palettes = load(library);
    if (!palettes)
        return Report::failure(palettes.error().description);
    switch (format) {
    case ListFormat::json:
        return Report::of(jsonDocument(palettes.value(), JsonStyle::pretty));
    case ListFormat::layout:
        break;
    }
    return Report::printed(libraryLayout(palettes.value(), terminal));
}

std::string libraryLayout(const std::vector<SavedPalette>& palettes, const Terminal& terminal)
{
    if (palettes.empty() && terminal.colors)
        return "No saved palettes yet; tintwell-cli save COLOR keeps one\n";
    int nameWidth = 0;
    for (const auto& palette : palettes)
        nameWidth = std::max(nameWidth, displayWidth(printable(palette.name)));
    if (terminal.colors)
        nameWidth = std::min(nameWidth, longestNameColumn);
    const auto shownId = terminal.colors ? idLength(palettes) : std::string::npos;

    std::string text;
    for (const auto& palette : palettes) {
        auto line = palette.id.text().substr(0, shownId) + "  "
            + platform::formatIso8601(palette.createdAt) + "  "
            + fitted(printable(palette.name), nameWidth) + "  ";
        const auto hex = palette.source.hex() + "  ";
        if (terminal.colors) {
            const int left = terminal.columns - displayWidth(line + hex) - 3;
            line += painted("  ", { .fill = palette.source }) + " " + hex
                + colorStrip(palette.colors, std::min(left, longestStrip));
        } else {
            line += hex + hexStrip(palette.colors);
        }
        text += line += "\n";
    }
    return text;
}

} // namespace tintwell
