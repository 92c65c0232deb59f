#include "FileWatch.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QTest>

namespace platform {
namespace {

namespace fs = std::filesystem;

void replace(const fs::path& file)
{
    const auto other = file.parent_path() / ".other.tmp";
    writeContent(other, "new");
    fs::rename(other, file);
}

TEST(FileWatch, TellsWhateverHappensToItsFileAndNothingElse)
{
    struct Case {
        const char* what;
        fs::path file;
        std::function<void(const fs::path& folder)> before;
        /// Each is told by itself.
        std::vector<std::function<void(const fs::path& folder)>> steps;
    };
    const std::vector<Case> cases {
        { "written, replaced, removed, made", "a", [](auto& in) { writeContent(in / "a", "old"); },
            { [](auto& in) { writeContent(in / "a", "new"); }, [](auto& in) { replace(in / "a"); },
                [](auto& in) { fs::remove(in / "a"); }, [](auto& in) { replace(in / "a"); } } },
        { "in a folder that is made later", "b/c/a", [](auto&) {},
            { [](auto& in) { fs::create_directories(in / "b"); },
                [](auto& in) {
                    fs::create_directories(in / "b/c");
                    writeContent(in / "b/c/a", "new");
                },
                [](auto& in) { replace(in / "b/c/a"); } } },
        { "in a folder that is replaced", "b/a",
            [](auto& in) {
                fs::create_directories(in / "b");
                writeContent(in / "b/a", "old");
            },
            { [](auto& in) {
                 fs::rename(in / "b", in / "old");
                 fs::create_directories(in / "b");
             },
                [](auto& in) { replace(in / "b/a"); } } },
        { "behind links", "link",
            [](auto& in) {
                fs::create_directories(in / "synced");
                fs::create_symlink("synced/second", in / "link");
                fs::create_symlink("a", in / "synced/second");
            },
            { [](auto& in) { replace(in / "synced/a"); },
                [](auto& in) {
                    fs::remove(in / "link");
                    fs::create_symlink("elsewhere/a", in / "link");
                },
                [](auto& in) { fs::create_directories(in / "elsewhere"); },
                [](auto& in) { replace(in / "elsewhere/a"); } } },
    };
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    for (const auto& [what, file, before, steps] : cases) {
        const TemporaryFolder folder;
        before(folder.path());
        int told = 0;
        const FileWatch watch(folder.path() / file, [&] { ++told; });
        for (const auto& step : steps) {
            told = 0;
            step(folder.path());
            EXPECT_TRUE(QTest::qWaitFor([&] { return told > 0; }, 10'000)) << what;
        }
    }
    const TemporaryFolder folder;
    int told = 0;
    int toldOther = 0;
    const FileWatch watch(folder / "a.json", [&] { ++told; });
    const FileWatch other(folder / "a (conflicted copy).json", [&] { ++toldOther; });
    writeContent(folder / "a.json.lock", "");
    writeContent(folder / "a (conflicted copy).json", "[]");
    EXPECT_TRUE(QTest::qWaitFor([&] { return toldOther > 0; }, 10'000));
    EXPECT_EQ(told, 0);
}

} // namespace
} // namespace platform
