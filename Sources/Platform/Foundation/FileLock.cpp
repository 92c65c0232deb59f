#include "FileLock.h"

#include "Text.h"

#include <algorithm>
#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

FileDescriptor openLockFile(const std::filesystem::path& lockFile)
{
    constexpr mode_t readWriteForAll = 0666;
    for (const int access : { O_RDWR, O_RDONLY }) {
        FileDescriptor opened(retryInterrupted([&] {
            return ::open(
                lockFile.c_str(), access | O_CREAT | O_CLOEXEC | O_NOCTTY, readWriteForAll);
        }));
        // A lock file that another user made may be read-only to this one, which is enough.
        if (opened.isOpen() || errno != EACCES)
            return opened;
    }
    return FileDescriptor {};
}

/// 0, or why the lock could not be had; EWOULDBLOCK when somebody holds it past the deadline.
int lockUntil(steady_clock::time_point deadline, int file)
{
    constexpr milliseconds longestNap { 20 };
    for (milliseconds nap { 1 };; nap = std::min(nap * 2, longestNap)) {
        if (retryInterrupted([&] { return ::flock(file, LOCK_EX | LOCK_NB); }) == 0)
            return 0;
        if (errno == EOPNOTSUPP || errno == ENOSYS || errno == ENOLCK)
            return 0;
        if (errno != EWOULDBLOCK || steady_clock::now() >= deadline)
            return errno;
        std::this_thread::sleep_for(nap);
    }
}

} // namespace

Result<FileLock> FileLock::acquire(const std::filesystem::path& file, milliseconds patience)
{
    const auto deadline = steady_clock::now() + patience;
    auto lockFile = file;
    lockFile += ".lock";
    auto opened = openLockFile(lockFile);
    if (!opened.isOpen())
        return Error { lockFile.filename().string() + " could not be made: " + reasonText(errno) };
    const int failure = lockUntil(deadline, opened.number());
    if (failure == EWOULDBLOCK)
        return Error { file.filename().string() + " is in use by another program" };
    if (failure != 0)
        return Error { lockFile.filename().string()
            + " could not be locked: " + reasonText(failure) };
    return FileLock(std::move(opened));
}

} // namespace platform
