#include "FileLock.h"

#include "Text.h"

#include <algorithm>
#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
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

/// A holder that waited may get the lock of a file that the one before has removed. Some file
/// systems count no links, some number their files anew; none is known to do both.
bool isRemoved(const std::filesystem::path& path, int file)
{
    struct stat held = {};
    struct stat there = {};
    if (::fstat(file, &held) != 0 || held.st_nlink > 0)
        return false;
    return ::stat(path.c_str(), &there) != 0 || there.st_ino != held.st_ino
        || there.st_dev != held.st_dev;
}

/// 0, or why the lock could not be had; EWOULDBLOCK when somebody holds it past the deadline.
int lockUntil(steady_clock::time_point deadline, int file)
{
    constexpr milliseconds longestNap { 20 };
    for (milliseconds nap { 1 };; nap = std::min(nap * 2, longestNap)) {
        if (retryInterrupted([&] { return ::flock(file, LOCK_EX | LOCK_NB); }) == 0)
            return 0;
        if (errno == EOPNOTSUPP || errno == ENOSYS)
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
    for (;;) {
        auto opened = openLockFile(lockFile);
        if (!opened.isOpen())
            return Error { lockFile.filename().string()
                + " could not be made: " + reasonText(errno) };
        const int failure = lockUntil(deadline, opened.number());
        if (failure == EWOULDBLOCK)
            return Error { file.filename().string() + " is in use by another program" };
        if (failure != 0)
            return Error { lockFile.filename().string()
                + " could not be locked: " + reasonText(failure) };
        if (!isRemoved(lockFile, opened.number()))
            return FileLock(std::move(lockFile), std::move(opened));
    }
}

/// The file goes while it is still locked, so that nobody's lock is removed but one's own.
FileLock::~FileLock()
{
    if (file_.isOpen())
        ::unlink(path_.c_str());
}

} // namespace platform
