#include "AtomicFile.h"

#include "ChildProcess.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace platform {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

mode_t modeOf(const fs::path& file)
{
    struct stat status { };
    return ::stat(file.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(AtomicFile, ReadsBackWhatWasWritten)
{
    const TemporaryFolder folder;
    const auto file = folder / "a.json";
    for (const std::string& bytes :
        { std::string("one"), std::string(), std::string(300'000, '\0') + "end" }) {
        FileStamp written;
        ASSERT_TRUE(writeFileAtomically(file, bytes, &written));
        FileStamp read;
        const auto content = readWholeFile(file, 1'000'000, &read);
        ASSERT_TRUE(content);
        EXPECT_EQ(content.value(), bytes);
        EXPECT_EQ(read, written);
        EXPECT_EQ(stampOf(file), written);
    }
    EXPECT_EQ(folder.names(), Names { "a.json" });
}

TEST(AtomicFile, KeepsModesAndFollowsTheUmask)
{
    const TemporaryFolder folder;
    const auto file = folder / "a.json";
    EXPECT_TRUE(holdsInChild([&] {
        ::umask(027);
        return writeFileAtomically(file, "new").hasValue() && modeOf(file) == 0640;
    }));
    for (const mode_t mode : { 0600U, 0664U, 0400U }) {
        ASSERT_EQ(::chmod(file.c_str(), mode), 0);
        ASSERT_TRUE(writeFileAtomically(file, "newer"));
        EXPECT_EQ(modeOf(file), mode);
    }
}

TEST(AtomicFile, KeepsSymbolicLinks)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "real");
    fs::create_symlink("second", folder / "first");
    fs::create_symlink("real/a.json", folder / "second");
    for (const char* bytes : { "through a dangling link", "through a link to a file" }) {
        ASSERT_TRUE(writeFileAtomically(folder / "first", bytes));
        EXPECT_TRUE(fs::is_symlink(folder / "first"));
        EXPECT_TRUE(fs::is_symlink(folder / "second"));
        EXPECT_EQ(contentOf(folder / "real/a.json"), bytes);
    }
    EXPECT_EQ(folder.names(), (Names { "first", "real", "second" }));

    fs::create_symlink("circle", folder / "circle");
    const auto written = writeFileAtomically(folder / "circle", "x");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().description,
        "circle could not be written: its symbolic links lead in a circle");
    EXPECT_TRUE(fs::is_symlink(folder / "circle"));
}

TEST(AtomicFile, SaysWhyAFileCannotBeRead)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "folder");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    writeContent(folder / "large", std::string(2'000'001, 'x'));
    const struct {
        const char* name;
        const char* error;
    } rows[] = {
        { "none", "none could not be read: it does not exist" },
        { "folder", "folder could not be read: a folder is in its place" },
        { "pipe", "pipe could not be read: it is not a regular file" },
        { "large", "large could not be read: it is larger than 2 MB" },
    };
    for (const auto& row : rows) {
        const auto content = readWholeFile(folder / row.name, 2'000'000);
        ASSERT_FALSE(content) << row.name;
        EXPECT_EQ(content.error().description, row.error);
    }
}

TEST(AtomicFile, AFolderThatIsMissingOrInTheWayIsAnError)
{
    const TemporaryFolder folder;
    const auto lost = writeFileAtomically(folder / "none/a.json", "new");
    ASSERT_FALSE(lost);
    EXPECT_EQ(lost.error().description, "a.json could not be written: its folder is missing");
    fs::create_directory(folder / "b.json");
    const auto onFolder = writeFileAtomically(folder / "b.json", "new");
    ASSERT_FALSE(onFolder);
    EXPECT_EQ(
        onFolder.error().description, "b.json could not be written: a folder is in its place");
}

TEST(AtomicFile, ClearsWhatADeadProcessLeftAndNothingElse)
{
    const TemporaryFolder folder;
    // No process has this number.
    const std::string dead = ".a.json.2147483647-0";
    Names others { ".a.json.bak", ".a.json." + std::to_string(::getpid()) + "-0.tmp", ".a.json.tmp",
        dead + ".sync-conflict-20261122-100000-ABCDEFG.tmp", dead + " (conflicted copy).tmp",
        ".b.json.2147483647-0.tmp", "a (conflicted copy 2026-11-22).json",
        "a.sync-conflict-20261122-100000-ABCDEFG.json" };
    for (const auto& name : others)
        writeContent(folder / name.c_str(), "theirs");
    writeContent(folder / (dead + ".tmp").c_str(), "left");
    ASSERT_TRUE(writeFileAtomically(folder / "a.json", "new"));
    for (const auto& name : others)
        EXPECT_EQ(contentOf(folder / name.c_str()), "theirs") << name;
    others.emplace_back("a.json");
    std::sort(others.begin(), others.end());
    EXPECT_EQ(folder.names(), others);
}

} // namespace
} // namespace platform
