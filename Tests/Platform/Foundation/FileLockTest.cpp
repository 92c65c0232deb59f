#include "FileLock.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {
namespace {

using std::chrono::milliseconds;

/// For what is expected to be free at some time.
constexpr std::chrono::seconds patience { 10 };

TEST(FileLock, HasOneHolderAtATime)
{
    const TemporaryFolder folder;
    const auto file = folder / "a.json";
    {
        const auto held = FileLock::acquire(file, patience);
        ASSERT_TRUE(held);
        const auto second = FileLock::acquire(file, milliseconds { 30 });
        ASSERT_FALSE(second);
        EXPECT_EQ(second.error().description, "a.json is in use by another program");
    }
    EXPECT_TRUE(FileLock::acquire(file, milliseconds { 0 }));
    EXPECT_EQ(folder.names(), std::vector<std::string> { "a.json.lock" });
    EXPECT_EQ(contentOf(folder / "a.json.lock"), "");
}

TEST(FileLock, IsFreedWhenItsHolderDies)
{
    const TemporaryFolder folder;
    const auto file = folder / "a.json";
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const auto held = FileLock::acquire(file, patience);
        (void)(::write(ready[1], "x", 1) == 1);
        ::pause();
        ::_exit(held ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    EXPECT_FALSE(FileLock::acquire(file, milliseconds { 10 }));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(FileLock::acquire(file, milliseconds { 0 }));
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST(FileLock, IsNotInheritedByStartedPrograms)
{
    const TemporaryFolder folder;
    const auto file = folder / "a.json";
    pid_t child = -1;
    {
        const auto held = FileLock::acquire(file, patience);
        ASSERT_TRUE(held);
        int started[2];
        ASSERT_EQ(::pipe2(started, O_CLOEXEC), 0);
        child = ::fork();
        if (child == 0) {
            ::execlp("sleep", "sleep", "60", nullptr);
            ::_exit(1);
        }
        ::close(started[1]);
        char byte = 0;
        // Ends when the program took the place of the fork, and with it all that it inherited.
        ASSERT_EQ(::read(started[0], &byte, 1), 0);
        ::close(started[0]);
    }
    EXPECT_TRUE(FileLock::acquire(file, milliseconds { 0 }));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

TEST(FileLock, SaysWhyItCannotBeTaken)
{
    const TemporaryFolder folder;
    const auto held = FileLock::acquire(folder / "none/a.json", patience);
    ASSERT_FALSE(held);
    EXPECT_EQ(held.error().description, "a.json.lock could not be made: it does not exist");
}

} // namespace
} // namespace platform
