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

struct PalettePersistence::Memory {
    std::function<Timestamp()> now;
    /// The state of the file that this store last read or wrote; nothing when that was no library.
    std::optional<FileStamp> stamp;
};

struct PalettePersistence::Edit::State {
    State(path file, std::shared_ptr<Memory> storeMemory, FileLock held)
        : url(std::move(file))
        , memory(std::move(storeMemory))
        , lock(std::move(held))
    {
    }

    path url;
    std::shared_ptr<Memory> memory;
    FileLock lock;
    std::optional<Library> changedElsewhere;
    bool isUnreadable = false;

    void lookAtFile()
    {
        const auto current = platform::stampOf(url);
        if (!current || current == memory->stamp)
            return;
        FileStamp stamp;
        auto library = readLibrary(url, stamp);
        std::error_code ignored;
        if (library)
            changedElsewhere = std::move(library).value();
        else
            isUnreadable = std::filesystem::is_regular_file(url, ignored);
    }
};

PalettePersistence::PalettePersistence(path url, std::function<Timestamp()> now)
    : file_(std::move(url))
    , memory_(std::make_shared<Memory>())
{
    memory_->now = now ? std::move(now) : platform::currentTime;
}

path PalettePersistence::defaultURL(const platform::Directories& directories)
{
    const path base
        = directories.dataHome.value_or(directories.home / "Library/Application Support");
    return base / "Tintwell" / "saved-palettes.json";
}

Result<Library> PalettePersistence::load()
{
    memory_->stamp.reset();
    std::error_code ignored;
    if (std::filesystem::status(file_, ignored).type() == std::filesystem::file_type::not_found)
        return Library {};
    FileStamp stamp;
    auto library = readLibrary(file_, stamp);
    if (library)
        memory_->stamp = stamp;
    return library;
}

std::optional<Library> PalettePersistence::takeUpChange()
{
    const auto current = platform::stampOf(file_);
    if (!current || current == memory_->stamp)
        return std::nullopt;
    FileStamp stamp;
    auto library = readLibrary(file_, stamp);
    if (!library)
        return std::nullopt;
    memory_->stamp = stamp;
    return std::move(library).value();
}

Result<void> PalettePersistence::save(const Library& palettes)
{
    auto edit = beginEdit();
    if (!edit)
        return edit.error();
    edit.value().state_->changedElsewhere.reset();
    return edit.value().save(palettes);
}

Result<PalettePersistence::Edit> PalettePersistence::beginEdit(std::chrono::milliseconds patience)
{
    if (auto created = platform::createFolders(file_.parent_path()); !created)
        return created.error();
    auto lock = FileLock::acquire(platform::followSymlinks(file_), patience);
    if (!lock)
        return lock.error();
    auto state = std::make_unique<Edit::State>(file_, memory_, std::move(lock).value());
    state->lookAtFile();
    return Edit(std::move(state));
}

Result<void> PalettePersistence::apply(const Change& change, Library& palettes)
{
    auto edit = beginEdit(change.patience);
    if (!edit)
        return edit.error();
    if (auto& others = edit.value().state_->changedElsewhere) {
        change.willChange();
        palettes = std::move(*others);
    }
    change.willChange();
    if (auto made = change.make(palettes); !made)
        return made;
    auto saved = edit.value().save(palettes);
    if (!saved) {
        change.willChange();
        change.takeBack(palettes);
    }
    return saved;
}

PalettePersistence::Edit::Edit(std::unique_ptr<State> state)
    : state_(std::move(state))
{
}

PalettePersistence::Edit::Edit(Edit&&) noexcept = default;
PalettePersistence::Edit& PalettePersistence::Edit::operator=(Edit&&) noexcept = default;
PalettePersistence::Edit::~Edit() = default;

const std::optional<Library>& PalettePersistence::Edit::changedElsewhere() const
{
    return state_->changedElsewhere;
}

Result<void> PalettePersistence::Edit::save(const Library& palettes)
{
    const auto json = encodeLibrary(state_->url, palettes, platform::stampOf(state_->url));
    if (!json)
        return json.error();
    path aside;
    if (state_->isUnreadable) {
        auto moved = platform::moveAside(state_->url, unreadableSuffix(state_->memory->now()));
        if (!moved)
            return moved.error();
        aside = std::move(moved).value();
    }
    FileStamp stamp;
    auto written = platform::writeFileAtomically(state_->url, json.value(), &stamp);
    if (!written) {
        std::error_code ignored;
        if (!aside.empty())
            std::filesystem::rename(aside, platform::followSymlinks(state_->url), ignored);
        return written;
    }
    state_->memory->stamp = stamp;
    state_->changedElsewhere.reset();
    state_->isUnreadable = false;
    return written;
}

} // namespace tintwell
