// The saved-palette store: the user's library in one JSON file, replaced whole and never lost.
#pragma once

#include "AtomicFile.h"
#include "Directories.h"
#include "PaletteModels.h"
#include "Result.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace tintwell {

/// The library file at `url`. It remembers which state of the file it last read or wrote, so that a
/// writer who comes second can take up what the first one wrote. Main thread only; any number of
/// stores and processes may share a file.
class PalettePersistence {
public:
    static constexpr std::chrono::seconds usualPatience { 10 };

    /// `now` dates a file that has to be moved aside.
    explicit PalettePersistence(std::filesystem::path url,
        std::function<platform::Timestamp()> now = platform::currentTime);

    [[nodiscard]] const std::filesystem::path& url() const { return file_; }

    /// The user's data folder (when there is none, the home folder and "Library/Application
    /// Support"), then "Tintwell/saved-palettes.json". Touches nothing on disk.
    [[nodiscard]] static std::filesystem::path defaultURL(
        const platform::Directories& directories = platform::Directories::fromEnvironment());

    /// The library in file order; an empty list when there is no file. One error and no list when
    /// any part of it cannot be read.
    [[nodiscard]] platform::Result<std::vector<SavedPalette>> load();

    /// The list in the file when somebody else wrote it since this store last read or wrote it,
    /// which then counts as read; nothing when the store is up to date or no library can be read
    /// there.
    [[nodiscard]] std::optional<std::vector<SavedPalette>> takeUpChange();

    /// Replaces the whole file by `palettes`, atomically, creating missing folders. A file that
    /// cannot be read is first moved aside to "saved-palettes.json.unreadable-20261122T100000Z". On
    /// an error the old file is as it was and no temporary file is left.
    [[nodiscard]] platform::Result<void> save(const std::vector<SavedPalette>& palettes);

    /// One change of a list of palettes.
    struct Change {
        /// May refuse, and then leaves the list as it is.
        std::function<platform::Result<void>(std::vector<SavedPalette>&)> make;
        /// Undoes it when it could not be saved.
        std::function<void(std::vector<SavedPalette>&)> takeBack = [](auto&) {};
        /// Comes before everything that the list goes through.
        std::function<void()> willChange = [] {};
        /// How long to wait for the lock.
        std::chrono::milliseconds patience = usualPatience;
    };

    /// Makes the change and saves the list, with what others saved meanwhile taken up first.
    [[nodiscard]] platform::Result<void> apply(
        const Change& change, std::vector<SavedPalette>& palettes);

private:
    struct Edit;
    [[nodiscard]] platform::Result<Edit> beginEdit(std::chrono::milliseconds patience) const;
    [[nodiscard]] platform::Result<void> write(
        const std::vector<SavedPalette>& palettes, const Edit& edit);

    std::filesystem::path file_;
    std::function<platform::Timestamp()> now_;
    /// The state of the file that this store last read or wrote; nothing when that was no library.
    std::optional<platform::FileStamp> stamp_;
};

} // namespace tintwell
