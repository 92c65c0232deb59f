// Homes that do not behave: each gives a sentence or a success, and takes nothing away.
#include "DurableHome.h"
#include "WatchedDisk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

namespace tintwell {
namespace {

namespace fs = std::filesystem;
using platform::contentOf;
using platform::TemporaryFolder;

std::string nameIn(const DurableHome& home)
{
    const auto library = PalettePersistence(home.library).load();
    return library && library.value().size() == 1 ? library.value()[0].name : "";
}

std::ptrdiff_t temporariesIn(const fs::path& folder)
{
    return std::count_if(fs::recursive_directory_iterator(folder), {},
        [](const auto& entry) { return entry.path().extension() == ".tmp"; });
}

template <typename T> bool tellsHow(const platform::Result<T>& result)
{
    return result
        || (result.error().description.size() > 10
            && result.error().description.find('\n') == std::string::npos);
}

TEST(OddHome, AnyCallMayFailOnceOrFromThenOn)
{
    const TemporaryFolder folder;
    installPrograms(folder.path());
    DurableHome home(folder.path());
    const fs::path files[]
        = { folder / "Library/Colors/Tintwell.clr", folder / "data/krita/palettes/Tintwell.gpl" };
    ASSERT_TRUE(home.put("old"));
    const std::string old[] = { contentOf(files[0]), contentOf(files[1]) };
    std::ptrdiff_t leftBefore = 0;
    int calls = 0;
    whileWatching({ folder.path(), [&](const auto&) { return 0 * calls++; } },
        [&] { ASSERT_TRUE(home.put("new")); });
    const int most = calls;
    const std::string fresh[] = { contentOf(files[0]), contentOf(files[1]) };
    for (const int reason : { EROFS, EDQUOT, EACCES, ESTALE })
        for (int round = 0; round < 2 * most; ++round) {
            SCOPED_TRACE(std::to_string(reason) + " in round " + std::to_string(round));
            ASSERT_TRUE(home.put("old"));
            calls = 0;
            bool clears = true;
            const auto refuse = [&](const DiskCall& call) {
                const int number = calls++;
                const bool fails = round < most ? number == round : number >= round - most;
                clears = clears && !(fails && call.function == "unlink");
                return fails ? reason : 0;
            };
            whileWatching({ folder.path(), refuse }, [&] {
                const auto saved = home.save("new");
                EXPECT_TRUE(tellsHow(saved));
                EXPECT_EQ(nameIn(home), saved ? "new" : "old");
                const auto installed = home.install("new");
                EXPECT_TRUE(tellsHow(installed));
                EXPECT_TRUE(!installed || contentOf(files[1]) == fresh[1]);
            });
            for (const int i : { 0, 1 }) {
                const auto content = contentOf(files[i]);
                EXPECT_TRUE(content == old[i]
                    || content == fresh[i]
                    // A copy that cannot be replaced is removed.
                    || (i == 1 && !fs::exists(files[i])));
            }
            const auto left = temporariesIn(folder.path());
            EXPECT_TRUE(left == leftBefore || !clears);
            leftBefore = left;
        }
}

TEST(OddHome, GivesASentenceOrASuccess)
{
    const auto noQuota = "saved-palettes.json could not be written: your disk quota is used up";
    const struct {
        const char* function;
        const char* file; ///< How its name ends.
        int reason;
        const char* sentence; ///< Empty for a success.
    } rows[] = {
        { "flock", ".lock", ENOLCK, "" },
        { "flock", ".lock", EOPNOTSUPP, "" },
        { "fsync", "/Tintwell", EINVAL, "" },
        { "fchmod", ".tmp", EPERM, "" },
        { "renameat2", "", EINVAL, "" },
        { "write", ".tmp", EFBIG,
            "saved-palettes.json could not be written: it would be too large" },
        { "write", ".tmp", EDQUOT, noQuota },
        { "fsync", ".tmp", EDQUOT, noQuota },
        { "open", ".lock", EROFS,
            "saved-palettes.json.lock could not be made: the disk is read-only" },
    };
    for (const auto& row : rows)
        for (const bool isReadable : { true, false }) {
            SCOPED_TRACE(std::string(row.function) + " " + std::to_string(row.reason));
            const TemporaryFolder folder;
            DurableHome home(folder.path());
            ASSERT_TRUE(home.save("old"));
            if (!isReadable)
                platform::writeContent(home.library, "not JSON");
            const auto before = contentOf(home.library);
            const auto refuse = [&](const DiskCall& call) {
                return call.function == row.function && call.file.native().ends_with(row.file)
                    ? row.reason
                    : 0;
            };
            whileWatching({ folder.path(), refuse }, [&] {
                const auto saved = home.save("new");
                EXPECT_EQ(saved ? "" : saved.error().description, row.sentence);
                EXPECT_TRUE(saved ? nameIn(home) == "new" : contentOf(home.library) == before);
            });
        }
}

/// A network home keeps a file that is removed while it is open, under a name of its own.
TEST(OddHome, RemovesNoOpenFile)
{
    const TemporaryFolder folder;
    DurableHome home(folder.path());
    ASSERT_TRUE(home.save("old"));
    const auto refuse = [&](const DiskCall& call) {
        if (call.function == "unlink")
            for (const auto& open : fs::directory_iterator("/proc/self/fd"))
                if (std::error_code closed; fs::read_symlink(open, closed) == call.file)
                    ADD_FAILURE() << call.file << " is open";
        return call.function == "write" ? EDQUOT : 0;
    };
    whileWatching({ folder.path(), refuse }, [&] { EXPECT_FALSE(home.save("new")); });
}

/// Where a disk takes capital and small letters for the same, the user's own file is found under
/// our name, even one that was a copy of ours.
TEST(OddHome, LeavesAFileThatIsSpelledOtherwise)
{
    for (const std::string own : { "Tintwell.clr", "Tintwell.gpl" }) {
        const TemporaryFolder folder;
        installPrograms(folder.path());
        DurableHome home(folder.path());
        ASSERT_TRUE(home.install("old"));
        const fs::path lists = folder / "Library/Colors";
        const fs::path palette = folder / "data/krita/palettes/Tintwell.gpl";
        const auto before = contentOf(lists / own) + contentOf(palette);
        WatchedDisk disk { folder.path(), [](const auto&) { return 0; } };
        disk.spelling
            = [&](const auto& name) { return name == own ? "tIntwell" + name.substr(8) : name; };
        whileWatching(disk, [&] {
            const auto installed = home.install("new");
            EXPECT_EQ(
                installed ? home.installer.publication().summary() : installed.error().description,
                own == "Tintwell.gpl"
                    ? "Left alone: GIMP 2.10's Tintwell.gpl, Inkscape's Tintwell.gpl, Krita's "
                      "Tintwell.gpl were changed there."
                    : "A file in " + lists.string()
                        + " has the name Tintwell.clr in other letters and was left as it is");
        });
        EXPECT_EQ(contentOf(lists / own) + contentOf(palette), before);
    }
}

TEST(OddHome, SeesAChangeWhenTheClockWasSetBack)
{
    const TemporaryFolder folder;
    DurableHome first(folder.path());
    ASSERT_TRUE(first.save("old"));
    ASSERT_TRUE(DurableHome(folder.path()).save("new"));
    fs::last_write_time(
        first.library, fs::last_write_time(first.library) - std::chrono::hours { 24 });
    const auto changed = first.store.takeUpChange();
    ASSERT_TRUE(changed);
    EXPECT_EQ(changed->front().name, "new");
}

} // namespace
} // namespace tintwell
