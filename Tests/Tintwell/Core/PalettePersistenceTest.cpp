#include "PalettePersistence.h"

#include "AtomicFile.h"
#include "ChildProcess.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <functional>
#include <random>
#include <set>
#include <thread>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tintwell {
namespace {

namespace fs = std::filesystem;
using Library = std::vector<SavedPalette>;
using Names = std::vector<std::string>;
using platform::contentOf;
using platform::TemporaryFolder;
using platform::writeContent;

/// All there is in a folder when no save is under way: the library and its lock, which stays.
const Names onlyLibrary { "saved-palettes.json", "saved-palettes.json.lock" };

SavedPalette named(const std::string& name)
{
    return { .id = platform::Uuid::random(),
        .name = name,
        .createdAt = *platform::parseIso8601("2026-11-22T10:00:00Z"),
        .source = RGBAColor(0.1, 0.2, 0.3, 1),
        .colors = { { "source", name, RGBAColor(1.0 / 3, 0, 0.1, 1), "x/y" } } };
}

Library libraryNamed(const std::string& name, std::size_t count)
{
    Library library;
    for (std::size_t i = 0; i < count; ++i)
        library.push_back(named(name));
    return library;
}

Names namesIn(const Library& library)
{
    Names names;
    for (const auto& palette : library)
        names.push_back(palette.name);
    return names;
}

platform::Timestamp fixedTime()
{
    return *platform::parseIso8601("2026-11-22T10:00:00Z");
}

PalettePersistence storeAt(const fs::path& file)
{
    return PalettePersistence(file, fixedTime);
}

Library loaded(const fs::path& file)
{
    auto library = storeAt(file).load();
    EXPECT_TRUE(library) << library.error().description;
    return library ? library.value() : Library {};
}

/// What every writer of a shared library does: its one change, applied to what is in the file.
bool insertPalette(PalettePersistence& store, Library& library, SavedPalette palette)
{
    const auto insert = [&](Library& palettes) {
        palettes.insert(palettes.begin(), std::move(palette));
        return platform::Result<void>();
    };
    return store.apply({ .make = insert }, library).hasValue();
}

/// What a change of `known` would begin with; it is refused.
Library seenBy(PalettePersistence& store, Library known)
{
    const auto refuse = [](Library&) -> platform::Result<void> { return platform::Error {}; };
    EXPECT_FALSE(store.apply({ .make = refuse }, known));
    return known;
}

/// Starts a process that runs `body` and ends with 0 if it returns true.
pid_t startChild(const std::function<bool()>& body)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(body() ? 0 : 1);
    return child;
}

bool endedWell(pid_t child)
{
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(PalettePersistence, LivesInTheDataFolder)
{
    EXPECT_EQ(PalettePersistence::defaultURL({ .home = "/home/ada",
                  .dataHome = "/home/ada/.local/share",
                  .configHome = {},
                  .runtimeDir = {} }),
        "/home/ada/.local/share/Tintwell/saved-palettes.json");
    EXPECT_EQ(PalettePersistence::defaultURL(
                  { .home = "/home/ada", .dataHome = {}, .configHome = {}, .runtimeDir = {} }),
        "/home/ada/Library/Application Support/Tintwell/saved-palettes.json");
}

TEST(PalettePersistence, StartsEmptyAndKeepsWhatIsSaved)
{
    const TemporaryFolder folder;
    const auto file = folder / "data/Tintwell/saved-palettes.json";
    EXPECT_EQ(loaded(file), Library {});
    EXPECT_EQ(folder.names(), Names {});

    const auto library = libraryNamed("Violet", 3);
    ASSERT_TRUE(storeAt(file).save(library));
    EXPECT_EQ(loaded(file), library);
    ASSERT_TRUE(storeAt(file).save({}));
    EXPECT_EQ(contentOf(file), "[]\n");
    EXPECT_EQ(loaded(file), Library {});
}

TEST(PalettePersistence, NamesTheFileInEveryError)
{
    const TemporaryFolder folder;
    const auto file = folder / "saved-palettes.json";
    writeContent(file, "[{}]");
    const auto broken = storeAt(file).load();
    ASSERT_FALSE(broken);
    EXPECT_EQ(broken.error().description,
        R"(saved-palettes.json: entry 1: the member "colors" is missing)");

    auto library = libraryNamed("Violet", 1);
    library[0].source = RGBAColor::stored(std::nan(""), 0, 0, 1);
    const auto saved = storeAt(file).save(library);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().description,
        R"(saved-palettes.json: entry 1, "source", "red": is not a finite number)");
    EXPECT_EQ(contentOf(file), "[{}]");
}

TEST(PalettePersistence, MovesAFileItCannotReadAside)
{
    const TemporaryFolder folder;
    const auto file = folder / "saved-palettes.json";
    const Names asides { "saved-palettes.json.unreadable-20261122T100000Z",
        "saved-palettes.json.unreadable-20261122T100000Z-2" };
    for (const char* content : { "first, not JSON", "second, not JSON" }) {
        writeContent(file, content);
        auto store = storeAt(file);
        EXPECT_FALSE(store.load());
        ASSERT_TRUE(store.save(libraryNamed("new", 1)));
        ASSERT_TRUE(store.save(libraryNamed("newer", 1)));
        EXPECT_EQ(namesIn(loaded(file)), Names { "newer" });
    }
    EXPECT_EQ(contentOf(folder / asides[0].c_str()), "first, not JSON");
    EXPECT_EQ(contentOf(folder / asides[1].c_str()), "second, not JSON");
    EXPECT_EQ(folder.names(), (Names { onlyLibrary[0], onlyLibrary[1], asides[0], asides[1] }));
}

TEST(PalettePersistence, TakesUpAFileThatWasRepairedMeanwhile)
{
    const TemporaryFolder folder;
    const auto file = folder / "saved-palettes.json";
    writeContent(file, "not JSON");
    auto store = storeAt(file);
    EXPECT_FALSE(store.load());
    fs::remove(file);
    ASSERT_TRUE(storeAt(file).save(libraryNamed("repaired", 1)));
    Library library;
    ASSERT_TRUE(insertPalette(store, library, named("new")));
    EXPECT_EQ(namesIn(loaded(file)), (Names { "new", "repaired" }));
    EXPECT_EQ(folder.names(), onlyLibrary);
}

TEST(PalettePersistence, SaysThatItsFolderCannotBeMade)
{
    const TemporaryFolder folder;
    writeContent(folder / "plain", "x");
    EXPECT_EQ(loaded(folder / "plain/saved-palettes.json"), Library {});
    const auto inFile = storeAt(folder / "plain/saved-palettes.json").save({});
    ASSERT_FALSE(inFile);
    EXPECT_EQ(inFile.error().description,
        "The folder " + (folder / "plain").string()
            + " could not be made: a part of its path is not a folder");
}

TEST(PalettePersistence, TellsWhatOthersWroteOnlyOnce)
{
    const TemporaryFolder folder;
    const auto file = folder / "saved-palettes.json";
    auto first = storeAt(file);
    auto second = storeAt(file);
    Library firstList = first.load().value();
    Library secondList = second.load().value();
    ASSERT_TRUE(insertPalette(first, firstList, named("a")));
    ASSERT_TRUE(insertPalette(second, secondList, named("b")));
    ASSERT_TRUE(insertPalette(first, firstList, named("c")));
    EXPECT_EQ(namesIn(loaded(file)), (Names { "c", "b", "a" }));
    EXPECT_EQ(seenBy(first, {}), Library {});
    EXPECT_EQ(seenBy(second, {}), firstList);
    // Looking alone does not count as having read it.
    EXPECT_EQ(seenBy(second, {}), firstList);

    // What the store knows is all there is once the file is gone.
    fs::remove(file);
    EXPECT_EQ(seenBy(second, secondList), secondList);
}

TEST(PalettePersistence, KeepsALinkToALibraryElsewhere)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "synced");
    const auto link = folder / "saved-palettes.json";
    fs::create_symlink("synced/palettes.json", link);
    ASSERT_TRUE(storeAt(link).save(libraryNamed("a", 1)));
    writeContent(folder / "synced/palettes.json", "broken");
    ASSERT_TRUE(storeAt(link).save(libraryNamed("b", 1)));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(namesIn(loaded(folder / "synced/palettes.json")), Names { "b" });
    EXPECT_EQ(contentOf(folder / "synced/palettes.json.unreadable-20261122T100000Z"), "broken");
}

TEST(PalettePersistence, IsWholeWhenASavingProcessIsKilled)
{
    const TemporaryFolder folder;
    const auto file = folder / "saved-palettes.json";
    ASSERT_TRUE(storeAt(file).save(libraryNamed("0", 40)));
    std::mt19937 random(3);
    // Follows the time that a save takes here now, so that every other process gets one done.
    double longest = 2000;
    int number = 0;
    int saved = 0;
    int interrupted = 0;
    // Many are killed after a whole save, and many while the new file stands beside the old one.
    for (int round = 0; round < 300 || saved <= 10 || interrupted <= 10; ++round) {
        const pid_t child = startChild([&] {
            auto store = storeAt(file);
            for (int next = number + 1;; ++next)
                if (!store.save(libraryNamed(std::to_string(next), 40)))
                    return false;
        });
        std::this_thread::sleep_for(std::chrono::microseconds { random() % std::lround(longest) });
        ::kill(child, SIGKILL);
        EXPECT_FALSE(endedWell(child));

        const auto library = loaded(file);
        ASSERT_EQ(library.size(), 40U);
        const int current = std::stoi(library[0].name);
        ASSERT_EQ(namesIn(library), Names(40, library[0].name));
        ASSERT_GE(current, number);
        saved += current > number ? 1 : 0;
        longest = std::clamp(longest * (current > number ? 0.9 : 1.1), 100.0, 200'000.0);
        interrupted += folder.names().size() > 2 ? 1 : 0;
        number = current;
    }
    ASSERT_TRUE(storeAt(file).save({}));
    EXPECT_EQ(folder.names(), onlyLibrary);
}

TEST(PalettePersistence, TwoProcessesLoseNothing)
{
    const TemporaryFolder folder;
    const auto file = folder / "saved-palettes.json";
    const auto writer = [&](const std::string& name) {
        return startChild([&file, name] {
            auto store = storeAt(file);
            auto library = store.load().value();
            for (int i = 0; i < 200; ++i)
                if (!insertPalette(store, library, named(name + std::to_string(i))))
                    return false;
            return true;
        });
    };
    const pid_t first = writer("a");
    const pid_t second = writer("b");
    EXPECT_TRUE(endedWell(first));
    EXPECT_TRUE(endedWell(second));
    const auto names = namesIn(loaded(file));
    EXPECT_EQ(names.size(), 400U);
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 400U);
}

/// Whether a save of `newSize` palettes fails with this sentence.
bool failsToSave(const fs::path& file, std::size_t newSize, const std::string& error)
{
    const auto saved = storeAt(file).save(libraryNamed("new", newSize));
    return !saved && saved.error().description == error;
}

TEST(PalettePersistence, AFullDiskLeavesTheOldFile)
{
    for (const char* old : { "[]", "unreadable" }) {
        const TemporaryFolder folder;
        const auto file = folder / "saved-palettes.json";
        writeContent(file, old);
        EXPECT_TRUE(platform::holdsWithFullDisk(50'000, [&] {
            return failsToSave(
                file, 1000, "saved-palettes.json could not be written: it would be too large");
        }));
        EXPECT_EQ(contentOf(file), old);
        EXPECT_EQ(folder.names(), onlyLibrary);
    }
}

TEST(PalettePersistence, AReadOnlyFolderLeavesTheOldLibrary)
{
    const TemporaryFolder folder;
    const auto file = folder / "saved-palettes.json";
    ASSERT_TRUE(storeAt(file).save(libraryNamed("old", 1)));
    fs::remove(folder / "saved-palettes.json.lock");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    EXPECT_TRUE(platform::holdsForOrdinaryUser([&] {
        return failsToSave(
            file, 1, "saved-palettes.json.lock could not be made: permission is denied");
    }));
    EXPECT_EQ(namesIn(loaded(file)), Names { "old" });
    EXPECT_EQ(folder.names(), Names { "saved-palettes.json" });
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
}

} // namespace
} // namespace tintwell
