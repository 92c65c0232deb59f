#include "LibraryCommands.h"

#include "JsonOutput.h"
#include "PaletteGenerator.h"
#include "PaletteLayout.h"
#include "TintwellViewState.h"

#include <algorithm>
#include <functional>

namespace tintwell {

namespace {

constexpr int longestNameColumn = 24;
constexpr int longestStrip = 36;
constexpr int swatchWidth = 2;
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
        return platform::Error { "Saved palettes could not be loaded from "
            + printable(library.url().string()) + ": " + palettes.error().description
            + "; mend that file, or move it away to begin a new library" };
    return palettes;
}

platform::Result<void> edit(PalettePersistence& library, const std::string& failure,
    const std::function<platform::Result<void>(std::vector<SavedPalette>&)>& change)
{
    // A library that cannot be read stays as it is: only its owner can tell what it is worth.
    auto palettes = load(library);
    if (!palettes)
        return palettes.error();
    bool refuses = false;
    const auto make = [&](auto& list) {
        auto made = change(list);
        refuses = !made;
        return made;
    };
    const auto done = library.apply({ .make = make }, palettes.value());
    return done || refuses ? done : platform::Error { failure + done.error().description };
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

/// "Violet · #6E56CF · ID" on a line.
std::string summary(const SavedPalette& palette)
{
    return printable(palette.name) + " · " + palette.source.hex() + " · " + palette.id.text()
        + "\n";
}

std::string plainLine(const SavedPalette& palette, int nameWidth)
{
    return palette.id.text() + "  " + platform::formatIso8601(palette.createdAt) + "  "
        + fitted(printable(palette.name), nameWidth) + "  " + palette.source.hex() + "  "
        + hexStrip(palette.colors) + "\n";
}

/// How many cells each column of a list takes on a terminal; 0 leaves it out.
struct ListColumns {
    std::size_t id;
    std::size_t date;
    int name;
    int strip;
};

ListColumns listColumns(
    const std::vector<SavedPalette>& palettes, int nameWidth, const Terminal& terminal)
{
    constexpr int gap = 2;
    constexpr int shortestName = 10;
    constexpr int sourceWidth = swatchWidth + 1 + 7; // a space and the hex text
    const auto id = idLength(palettes);
    const int fixed = static_cast<int>(id) + sourceWidth + shortestName + 2 * gap;
    ListColumns columns { id, 0, 0, 0 };
    int left = std::max(terminal.columns, narrowestLayout) - fixed;
    // The day alone where the time does not fit beside it.
    for (const std::size_t date : { std::string_view("2026-11-22T10:00:00Z").size(),
             std::string_view("2026-11-22").size() }) {
        const int taken = static_cast<int>(date) + gap;
        if (left < taken)
            continue;
        columns.date = date;
        left -= taken;
        break;
    }
    columns.name = std::min({ nameWidth, longestNameColumn, shortestName + std::max(left, 0) });
    const int strip = left + shortestName - columns.name - gap;
    if (terminal.hasColors() && strip >= static_cast<int>(mostStripColors))
        columns.strip = std::min(strip, longestStrip);
    return columns;
}

std::string terminalLine(const SavedPalette& palette, const ListColumns& columns, bool hasColors)
{
    auto line = palette.id.text().substr(0, columns.id) + "  ";
    if (columns.date > 0)
        line += platform::formatIso8601(palette.createdAt).substr(0, columns.date) + "  ";
    line += fitted(printable(palette.name), columns.name) + "  "
        + (hasColors ? swatch(palette.source, swatchWidth) + " " : "") + palette.source.hex();
    if (columns.strip > 0)
        line += "  " + colorStrip(palette.colors, columns.strip);
    return line + "\n";
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
    platform::Timestamp now, LibraryFormat format)
{
    const auto saved = SavedPalette::of(PaletteGenerator().generate(source), id, now);
    const auto done = edit(library, "Save failed: ", [&](std::vector<SavedPalette>& list) {
        list.insert(list.begin(), saved);
        return platform::Result<void>();
    });
    if (!done)
        return Report::failure(done.error().description);
    if (format == LibraryFormat::json)
        return Report::of(jsonDocument(saved, JsonStyle::pretty));
    return Report::printed("Saved " + summary(saved));
}

Report deleteSaved(PalettePersistence& library, std::string_view prefix)
{
    std::string deleted;
    const auto done = edit(
        library, "Delete failed: ", [&](std::vector<SavedPalette>& list) -> platform::Result<void> {
            const auto found = findSaved(list, prefix);
            if (!found)
                return found.error();
            deleted = summary(found.value());
            std::erase_if(list, [&](const auto& other) { return other.id == found.value().id; });
            return {};
        });
    if (!done)
        return Report::failure(done.error().description);
    return Report::printed("Deleted " + deleted);
}

platform::Result<SavedPalette> loadSaved(PalettePersistence& library, std::string_view prefix)
{
    const auto palettes = load(library);
    if (!palettes)
        return palettes.error();
    return findSaved(palettes.value(), prefix);
}

Report listSaved(PalettePersistence& library, LibraryFormat format, const Terminal& terminal)
{
    const auto palettes = load(library);
    if (!palettes)
        return Report::failure(palettes.error().description);
    if (format == LibraryFormat::json)
        return Report::of(jsonDocument(palettes.value(), JsonStyle::pretty));
    return Report::printed(libraryLayout(palettes.value(), terminal));
}

std::string libraryLayout(const std::vector<SavedPalette>& palettes, const Terminal& terminal)
{
    if (palettes.empty() && terminal.isTerminal)
        return "No saved palettes yet; tintwell-cli save COLOR keeps one\n";
    int nameWidth = 0;
    for (const auto& palette : palettes)
        nameWidth = std::max(nameWidth, displayWidth(printable(palette.name)));
    const auto columns = listColumns(palettes, nameWidth, terminal);
    std::string text;
    for (const auto& palette : palettes)
        text += terminal.isTerminal || terminal.hasColors()
            ? terminalLine(palette, columns, terminal.hasColors())
            : plainLine(palette, nameWidth);
    return text;
}

} // namespace tintwell
