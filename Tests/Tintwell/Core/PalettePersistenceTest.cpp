#include "PalettePersistence.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <set>

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

} // namespace
} // namespace tintwell
