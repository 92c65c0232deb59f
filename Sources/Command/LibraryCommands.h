// The saved palettes on the command line: save, list, find and delete.
#pragma once

#include "PalettePersistence.h"
#include "Report.h"
#include "Terminal.h"

#include <string>
#include <string_view>
#include <vector>

namespace tintwell {

/// Where an id stands among the saved palettes: the one whose id begins with `prefix`, in either
/// case. The error says whether none or several do.
[[nodiscard]] platform::Result<SavedPalette> findSaved(
    const std::vector<SavedPalette>& palettes, std::string_view prefix);

enum class LibraryFormat { layout, json };

/// Puts the palette of `source` at the front of the library; prints its name, hex text and id, or
/// its entry.
[[nodiscard]] Report saveColor(PalettePersistence& library, const RGBAColor& source,
    platform::Uuid id, platform::Timestamp now, LibraryFormat format);

/// Takes the palette whose id begins with `prefix` out of the library; prints what went.
[[nodiscard]] Report deleteSaved(PalettePersistence& library, std::string_view prefix);

/// The saved palette whose id begins with `prefix`.
[[nodiscard]] platform::Result<SavedPalette> loadSaved(
    PalettePersistence& library, std::string_view prefix);

[[nodiscard]] Report listSaved(
    PalettePersistence& library, LibraryFormat format, const Terminal& terminal);

/// One line a palette: id, date, name, source and a strip of the first colours.
///
/// Terminals get the shortest first part of each id that stands for it alone, 8 characters or more,
/// and as much of date, name and strip as fits; files and pipes get all, the strip as hex texts.
[[nodiscard]] std::string libraryLayout(
    const std::vector<SavedPalette>& palettes, const Terminal& terminal);

} // namespace tintwell
