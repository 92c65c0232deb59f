// A program's own functions go before those of the C library, for every caller in the process.
#undef _FORTIFY_SOURCE
#include "WatchedDisk.h"

#include <dirent.h>
#include <dlfcn.h>

#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using tintwell::WatchedDisk;

std::filesystem::path pathOf(int file)
{
    std::error_code closed;
    return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file), closed);
}

template <typename... Arguments>
long pass(const tintwell::DiskCall& call, long number, Arguments... arguments)
{
    // What the fault and the witness do themselves is not watched.
    auto* const disk = std::exchange(WatchedDisk::current, nullptr);
    const bool isWatched = disk && call.file.native().starts_with(disk->folder.native());
    long result = -1;
    int reason = isWatched ? disk->fault(call) : 0;
    if (reason == 0) {
        result = ::syscall(number, arguments...);
        reason = errno;
        if (result >= 0 && isWatched)
            disk->witness(call);
    }
    WatchedDisk::current = disk;
    errno = reason;
    return result;
}

} // namespace

// NOLINTBEGIN
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
extern "C" {

int open(const char* file, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, mode_t);
    va_end(more);
    return (flags & O_CREAT) != 0 ? pass({ "open", file }, SYS_open, file, flags, mode)
                                  : ::syscall(SYS_open, file, flags);
}

ssize_t write(int file, const void* bytes, size_t count)
{
    const std::string_view text(static_cast<const char*>(bytes), count);
    return pass({ "write", pathOf(file), {}, text }, SYS_write, file, bytes, count);
}

int fsync(int file)
{
    return pass({ "fsync", pathOf(file) }, SYS_fsync, file);
}

int flock(int file, int operation)
{
    return pass({ "flock", pathOf(file) }, SYS_flock, file, operation);
}

int fchmod(int file, mode_t mode)
{
    return pass({ "fchmod", pathOf(file) }, SYS_fchmod, file, mode);
}

int mkdir(const char* folder, mode_t mode)
{
    return pass({ "mkdir", folder }, SYS_mkdir, folder, mode);
}

int rename(const char* from, const char* to)
{
    return pass({ "rename", from, to }, SYS_rename, from, to);
}

int renameat2(int, const char* from, int, const char* to, unsigned flags)
{
    return pass({ "renameat2", from, to }, SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, flags);
}

int unlink(const char* file)
{
    return pass({ "unlink", file }, SYS_unlink, file);
}

dirent* readdir(DIR* folder)
{
    static const auto next = reinterpret_cast<dirent* (*)(DIR*)>(::dlsym(RTLD_NEXT, "readdir"));
    dirent* const entry = next(folder);
    if (entry && WatchedDisk::current && WatchedDisk::current->spelling)
        std::strcpy(entry->d_name, WatchedDisk::current->spelling(entry->d_name).c_str());
    return entry;
}

} // extern "C"
// NOLINTEND
