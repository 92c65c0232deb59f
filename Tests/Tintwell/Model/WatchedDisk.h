// Stands between a test and the file system: sees each call that changes a folder, and may refuse
// it on the file system's behalf.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace tintwell {

/// One call, by the name of its function.
struct DiskCall {
    std::string_view function;
    std::filesystem::path file;
    std::filesystem::path target {}; ///< Of a rename.
    std::string_view bytes {}; ///< What is written.
};

/// While one is there, it comes before and after this process's calls on what lies below a folder.
struct WatchedDisk {
    std::filesystem::path folder;
    /// Why a call fails; 0 lets it happen.
    std::function<int(const DiskCall&)> fault;
    std::function<void(const DiskCall&)> witness = [](const auto&) {};
    /// By which name a folder lists each of its entries; of the same length.
    std::function<std::string(const std::string&)> spelling {};

    static inline WatchedDisk* current = nullptr;
};

inline void whileWatching(WatchedDisk disk, const std::function<void()>& body)
{
    WatchedDisk::current = &disk;
    body();
    WatchedDisk::current = nullptr;
}

} // namespace tintwell
