// One writer at a time: an advisory lock beside a file.
#pragma once

#include "FileDescriptor.h"
#include "Result.h"

#include <chrono>
#include <filesystem>

namespace platform {

/// Holds the lock of a file until it goes. The kernel frees it when the process dies, however that
/// happens; programs that are started meanwhile do not inherit it.
class FileLock {
public:
    /// Takes the lock `<file>.lock`, an empty file that stays for good: where a network home
    /// renames an open file on removal, two holders could lock two files. Waits for another holder,
    /// in this process too, but no longer than `patience`. On a file system without locks the
    /// writer goes on without one.
    [[nodiscard]] static Result<FileLock> acquire(
        const std::filesystem::path& file, std::chrono::milliseconds patience);

private:
    explicit FileLock(FileDescriptor file)
        : file_(std::move(file))
    {
    }

    FileDescriptor file_;
};

} // namespace platform
