// The saved-palette store: the user's library in one JSON file, replaced whole and never lost.
#pragma once

#include "Directories.h"
#include "PaletteModels.h"
#include "Result.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tintwell {

/// The library file at `url`. It remembers which state of the file it last read or wrote, so that a
/// writer who comes second can take up what the first one wrote. Main thread only; any number of
/// stores and processes may share a file.
class PalettePersistence {
public:
    static constexpr std::chrono::seconds usualPatience { 10 };

    /// `now` dates a file that has to be moved aside; without one it is the system's clock.
    explicit PalettePersistence(
        std::filesystem::path url, std::function<platform::Timestamp()> now = {});

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

    /// One change of the library under the file's lock, which is held until this goes.
    class Edit {
    public:
        Edit(Edit&&) noexcept;
        Edit& operator=(Edit&&) noexcept;
        ~Edit();

        /// The list in the file when somebody else wrote it since this store last read or wrote it;
        /// nothing when the store is up to date, when there is no file any more (what the store
        /// knows is then all there is), or when the file cannot be read (`save` will then move it
        /// aside).
        [[nodiscard]] const std::optional<std::vector<SavedPalette>>& changedElsewhere() const;

        /// As `PalettePersistence::save`, under the lock that is already held.
        [[nodiscard]] platform::Result<void> save(const std::vector<SavedPalette>& palettes);

    private:
        friend class PalettePersistence;
        struct State;
        explicit Edit(std::unique_ptr<State> state);
        std::unique_ptr<State> state_;
    };

    /// Waits for the lock and opens an edit; keep it only for as long as the change takes. Fails
    /// when the folder or the lock file cannot be made, or when somebody holds the lock for longer
    /// than `patience`.
    [[nodiscard]] platform::Result<Edit> beginEdit(
        std::chrono::milliseconds patience = usualPatience);

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
    struct Memory;
    std::filesystem::path file_;
    std::shared_ptr<Memory> memory_;
};

} // namespace tintwell
