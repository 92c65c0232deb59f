#include "PalettePersistence.h"

#include "AtomicFile.h"
#include "FileLock.h"
#include "PaletteModelsJson.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tintwell {

namespace {

using platform::Error;
using platform::FileLock;
using platform::FileStamp;
using platform::Result;
using platform::Timestamp;
using std::filesystem::path;

using Library = std::vector<SavedPalette>;

/// About twenty thousand palettes. What is larger is no library, and would not be read back.
constexpr std::size_t maxFileSize = 256'000'000;

Error inFile(const path& url, const std::string& problem)
{
    return { url.filename().string() + ": " + problem };
}

Result<Library> readLibrary(const path& url, FileStamp& stamp)
{
    auto json = platform::readWholeFile(url, maxFileSize, &stamp);
    if (!json)
        return json.error();
    auto library = decodeJson<Library>(std::move(json).value());
    if (!library)
        return inFile(url, library.error().description);
    return library;
}

Result<std::string> encodeLibrary(
    const path& url, const Library& palettes, const std::optional<FileStamp>& previous)
{
    constexpr std::size_t roomForAnotherPalette = 64'000;
    std::string json;
    // Growing by doubling would hold the text up to three times.
    json.reserve(roomForAnotherPalette
        + (previous ? std::min(static_cast<std::size_t>(previous->size), maxFileSize) : 0));
    const auto appended = appendJson(json, palettes, JsonStyle::pretty);
    if (!appended)
        return inFile(url, appended.error().description);
    json += '\n';
    if (json.size() > maxFileSize)
        return inFile(url, "the library has grown too large; delete some palettes");
    return json;
}

/// ".unreadable-20261122T100000Z": the moment without the separators that file names bear badly.
std::string unreadableSuffix(Timestamp now)
{
    std::string time = platform::formatIso8601(now);
    std::erase_if(time, [](char c) { return c == '-' || c == ':'; });
    return ".unreadable-" + time;
}

} // namespace

/// What is in the file while its lock is held.
struct PalettePersistence::Edit {
    FileLock lock;
    /// Nothing when nobody else wrote it since, when there is no file any more (what the store
    /// knows is then all there is), or when it cannot be read.
    std::optional<Library> changedElsewhere {};
    /// It has to be moved aside before anything is written in its place.
    bool isUnreadable = false;
};

PalettePersistence::PalettePersistence(path url, std::function<Timestamp()> now)
    : file_(std::move(url))
    , now_(std::move(now))
{
}

path PalettePersistence::defaultURL(const platform::Directories& directories)
{
    const path base
        = directories.dataHome.value_or(directories.home / "Library/Application Support");
    return base / "Tintwell" / "saved-palettes.json";
}

Result<Library> PalettePersistence::load()
{
    stamp_.reset();
    std::error_code ignored;
    if (std::filesystem::status(file_, ignored).type() == std::filesystem::file_type::not_found)
        return Library {};
    FileStamp stamp;
    auto library = readLibrary(file_, stamp);
    if (library)
        stamp_ = stamp;
    return library;
}

std::optional<Library> PalettePersistence::takeUpChange()
{
    const auto current = platform::stampOf(file_);
    if (!current || current == stamp_)
        return std::nullopt;
    FileStamp stamp;
    auto library = readLibrary(file_, stamp);
    if (!library)
        return std::nullopt;
    stamp_ = stamp;
    return std::move(library).value();
}

Result<PalettePersistence::Edit> PalettePersistence::beginEdit(
    std::chrono::milliseconds patience) const
{
    if (auto created = platform::createFolders(file_.parent_path()); !created)
        return created.error();
    auto lock = FileLock::acquire(platform::followSymlinks(file_), patience);
    if (!lock)
        return lock.error();
    Edit edit { std::move(lock).value() };
    const auto current = platform::stampOf(file_);
    if (!current || current == stamp_)
        return edit;
    FileStamp stamp;
    auto library = readLibrary(file_, stamp);
    std::error_code ignored;
    if (library)
        edit.changedElsewhere = std::move(library).value();
    else
        edit.isUnreadable = std::filesystem::is_regular_file(file_, ignored);
    return edit;
}

Result<void> PalettePersistence::save(const Library& palettes)
{
    const auto edit = beginEdit(usualPatience);
    return edit ? write(palettes, edit.value()) : edit.error();
}

Result<void> PalettePersistence::apply(const Change& change, Library& palettes)
{
    auto edit = beginEdit(change.patience);
    if (!edit)
        return edit.error();
    if (auto& others = edit.value().changedElsewhere) {
        change.willChange();
        palettes = std::move(*others);
    }
    change.willChange();
    if (auto made = change.make(palettes); !made)
        return made;
    auto saved = write(palettes, edit.value());
    if (!saved) {
        change.willChange();
        change.takeBack(palettes);
    }
    return saved;
}

Result<void> PalettePersistence::write(const Library& palettes, const Edit& edit)
{
    const auto json = encodeLibrary(file_, palettes, platform::stampOf(file_));
    if (!json)
        return json.error();
    path aside;
    if (edit.isUnreadable) {
        auto moved = platform::moveAside(file_, unreadableSuffix(now_()));
        if (!moved)
            return moved.error();
        aside = std::move(moved).value();
    }
    FileStamp stamp;
    auto written = platform::writeFileAtomically(file_, json.value(), &stamp);
    std::error_code ignored;
    if (written)
        stamp_ = stamp;
    else if (!aside.empty())
        std::filesystem::rename(aside, platform::followSymlinks(file_), ignored);
    return written;
}

} // namespace tintwell
