#include "AtomicFile.h"

#include "FileDescriptor.h"
#include "Text.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>

namespace platform {

namespace {

using std::filesystem::path;

constexpr mode_t permissionBits = 0777;
constexpr mode_t readWriteForAll = 0666;
constexpr std::string_view temporarySuffix = ".tmp";

FileStamp stampFrom(const struct stat& status)
{
    return { .device = status.st_dev,
        .inode = status.st_ino,
        .size = status.st_size,
        .modifiedSeconds = status.st_mtim.tv_sec,
        .modifiedNanoseconds = status.st_mtim.tv_nsec };
}

Error fileError(const path& file, std::string_view what, int errorNumber)
{
    return { file.filename().string() + " could not be " + std::string(what) + ": "
        + reasonText(errorNumber) };
}

Error notRegularError(const path& file, std::string_view what, mode_t mode)
{
    if (S_ISDIR(mode))
        return fileError(file, what, EISDIR);
    return { file.filename().string() + " could not be " + std::string(what)
        + ": it is not a regular file" };
}

Error tooLargeError(const path& file, std::size_t maxBytes)
{
    return { file.filename().string() + " could not be read: it is larger than "
        + std::to_string(maxBytes / 1'000'000) + " MB" };
}

std::string temporaryPrefix(const path& target)
{
    std::string prefix = ".";
    prefix += target.filename().string();
    return prefix += '.';
}

/// A file beside the target that removes itself unless it took the target's place.
class TemporaryFile {
public:
    explicit TemporaryFile(const path& target)
        : target_(target)
    {
        for (int attempt = 0; !file_.isOpen() && attempt < maxAttempts; ++attempt) {
            path_ = target.parent_path()
                / (temporaryPrefix(target) + std::to_string(getpid()) + "-"
                    + std::to_string(attempt) + std::string(temporarySuffix));
            file_ = FileDescriptor(retryInterrupted([&] {
                return ::open(
                    path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, readWriteForAll);
            }));
            if (!file_.isOpen() && errno != EEXIST)
                break;
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile()
    {
        if (!file_.isOpen() || inPlace_)
            return;
        // Closed first: a network home would keep an open file under another name.
        file_ = FileDescriptor();
        ::unlink(path_.c_str());
    }

    [[nodiscard]] bool isOpen() const { return file_.isOpen(); }

    /// Gives the new file the mode and, where that is allowed, the owner of the file it replaces.
    bool adopt(const struct stat& old)
    {
        struct stat own { };
        if (::fstat(file_.number(), &own) != 0)
            return false;
        if (own.st_uid != old.st_uid || own.st_gid != old.st_gid)
            (void)(::fchown(file_.number(), old.st_uid, old.st_gid) == 0);
        // Some file systems have one mode for all files and refuse even to set that.
        return ((own.st_mode ^ old.st_mode) & permissionBits) == 0
            || ::fchmod(file_.number(), old.st_mode & permissionBits) == 0;
    }

    bool write(std::string_view bytes)
    {
        while (!bytes.empty()) {
            const auto written = retryInterrupted(
                [&] { return ::write(file_.number(), bytes.data(), bytes.size()); });
            if (written < 0)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return retryInterrupted([&] { return ::fsync(file_.number()); }) == 0;
    }

    bool takePlace(FileStamp* stamp)
    {
        struct stat status { };
        if (::fstat(file_.number(), &status) != 0 || ::rename(path_.c_str(), target_.c_str()) != 0)
            return false;
        inPlace_ = true;
        if (stamp != nullptr)
            *stamp = stampFrom(status);
        return true;
    }

private:
    static constexpr int maxAttempts = 1000;
    const path& target_;
    path path_;
    FileDescriptor file_;
    bool inPlace_ = false;
};

/// Whether this names a temporary file of ours, as `prefix`, process and attempt, whose process is
/// gone. What another program made of one, such as a conflict copy, is none.
bool isAbandoned(std::string_view name, std::string_view prefix)
{
    if (!name.starts_with(prefix) || !name.ends_with(temporarySuffix))
        return false;
    name.remove_prefix(prefix.size());
    name.remove_suffix(std::min(temporarySuffix.size(), name.size()));
    pid_t process = 0;
    int attempt = 0;
    const auto* const end = name.data() + name.size();
    const auto first = std::from_chars(name.data(), end, process);
    if (first.ec != std::errc() || process <= 0 || first.ptr == end || *first.ptr != '-')
        return false;
    const auto second = std::from_chars(first.ptr + 1, end, attempt);
    return second.ec == std::errc() && second.ptr == end && ::kill(process, 0) != 0
        && errno == ESRCH;
}

void removeAbandonedTemporaries(const path& target)
{
    const std::string prefix = temporaryPrefix(target);
    const path folder = target.has_parent_path() ? target.parent_path() : ".";
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure))
        if (isAbandoned(entry->path().filename().string(), prefix))
            ::unlink(entry->path().c_str());
}

/// Opens a regular file for reading; anything else at the path is an error.
Result<FileDescriptor> openRegularFile(const path& file, struct stat& status)
{
    // Without O_NONBLOCK opening a pipe would wait for somebody to write into it.
    FileDescriptor opened(retryInterrupted(
        [&] { return ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    if (!opened.isOpen() || ::fstat(opened.number(), &status) != 0)
        return fileError(file, "read", errno);
    if (!S_ISREG(status.st_mode))
        return notRegularError(file, "read", status.st_mode);
    return opened;
}

/// 0 or the reason; EEXIST when there is something at `to`.
int renameWithoutReplacing(const path& from, const path& to)
{
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL)
        return errno;
    // This file system cannot do both at once.
    struct stat status { };
    if (::lstat(to.c_str(), &status) == 0)
        return EEXIST;
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

} // namespace

void syncFolder(const path& folder)
{
    const FileDescriptor file(
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (file.isOpen())
        retryInterrupted([&] { return ::fsync(file.number()); });
}

std::optional<FileStamp> stampOf(const path& file)
{
    struct stat status { };
    if (::stat(file.c_str(), &status) != 0)
        return std::nullopt;
    return stampFrom(status);
}

bool isSpelledOtherwise(const path& file)
{
    std::error_code failure;
    if (!std::filesystem::exists(std::filesystem::symlink_status(file, failure)))
        return false;
    std::filesystem::directory_iterator entry(file.parent_path(), failure);
    for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure))
        if (entry->path().filename() == file.filename())
            return false;
    return true;
}

path followSymlinks(const path& file)
{
    constexpr int mostLinks = 40;
    path target = file;
    for (int followed = 0; followed < mostLinks; ++followed) {
        std::error_code notALink;
        const path next = std::filesystem::read_symlink(target, notALink);
        if (notALink)
            return target;
        target = target.parent_path() / next;
    }
    return file;
}

Result<std::string> readWholeFile(const path& file, std::size_t maxBytes, FileStamp* stamp)
{
    struct stat status { };
    const auto opened = openRegularFile(file, status);
    if (!opened)
        return opened.error();
    if (static_cast<std::uintmax_t>(status.st_size) > maxBytes)
        return tooLargeError(file, maxBytes);
    // More than expected, so that neither the read that finds the end nor a reader of JSON, which
    // wants 64 bytes behind the text, needs a second buffer.
    std::string bytes(static_cast<std::size_t>(status.st_size) + 64, '\0');
    std::size_t length = 0;
    for (;;) {
        const auto count = retryInterrupted([&] {
            return ::read(opened.value().number(), bytes.data() + length, bytes.size() - length);
        });
        if (count < 0)
            return fileError(file, "read", errno);
        if (count == 0)
            break;
        length += static_cast<std::size_t>(count);
        if (length > maxBytes)
            return tooLargeError(file, maxBytes);
        if (length == bytes.size())
            bytes.resize(std::min(bytes.size() * 2, maxBytes + 1));
    }
    bytes.resize(length);
    if (stamp != nullptr)
        *stamp = stampFrom(status);
    return bytes;
}

Result<void> writeFileAtomically(const path& file, std::string_view bytes, FileStamp* stamp)
{
    const path target = followSymlinks(file);
    struct stat old { };
    const bool replaces = ::stat(target.c_str(), &old) == 0;
    if (!replaces && errno != ENOENT)
        return fileError(file, "written", errno);
    if (replaces && !S_ISREG(old.st_mode))
        return notRegularError(file, "written", old.st_mode);
    removeAbandonedTemporaries(target);
    TemporaryFile temporary(target);
    if (!temporary.isOpen() || (replaces && !temporary.adopt(old)) || !temporary.write(bytes)
        || !temporary.takePlace(stamp))
        return errno == ENOENT
            ? Error { file.filename().string() + " could not be written: its folder is missing" }
            : fileError(file, "written", errno);
    syncFolder(target.parent_path());
    return {};
}

Result<path> moveAside(const path& file, std::string_view suffix)
{
    const path target = followSymlinks(file);
    for (int number = 1;; ++number) {
        path aside = target;
        aside += suffix;
        if (number > 1) {
            aside += '-';
            aside += std::to_string(number);
        }
        const int failure = renameWithoutReplacing(target, aside);
        if (failure == 0) {
            // Before anything takes the old place: the two could reach the disk the other way
            // round.
            syncFolder(aside.parent_path());
            return aside;
        }
        if (failure != EEXIST)
            return fileError(file, "moved aside", failure);
    }
}

Result<void> createFolders(const path& folder)
{
    path made;
    for (const auto& part : folder) {
        made /= part;
        std::error_code ignored;
        if (std::filesystem::is_directory(made, ignored))
            continue;
        const int failure = ::mkdir(made.c_str(), permissionBits) == 0 ? 0 : errno;
        // Another program may have been faster.
        if (failure != 0 && !std::filesystem::is_directory(made, ignored))
            return Error { "The folder " + folder.string()
                + " could not be made: " + reasonText(failure == EEXIST ? ENOTDIR : failure) };
        syncFolder(made.parent_path());
    }
    return {};
}

} // namespace platform
