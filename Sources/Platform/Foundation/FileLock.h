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
    /// Takes the lock `<file>.lock`, an empty file that goes with its last holder. Waits for
    /// another holder, in this process too, but no longer than `patience`. On a file system without
    /// locks the writer goes on without one.
    [[nodiscard]] static Result<FileLock> acquire(const std::filesystem::path& file,
        std::chrono::milliseconds patience = std::chrono::seconds { 10 });

    FileLock(FileLock&&) = default;
    FileLock& operator=(FileLock&&) = delete;
    ~FileLock();

private:
    FileLock(std::filesystem::path path, FileDescriptor file)
        : path_(std::move(path))
        , file_(std::move(file))
    {
    }

    std::filesystem::path path_;
    FileDescriptor file_;
};

} // namespace platform
