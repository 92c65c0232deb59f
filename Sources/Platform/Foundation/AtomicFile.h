// Whole files at once: read whole, replaced whole or not at all.
#pragma once

#include "Result.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Tells one state of a file from every later one: which file it is, and when its content last
/// changed.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;

    bool operator==(const FileStamp&) const = default;
};

/// The stamp of the file at `file`, symbolic links followed; nothing when there is no such file.
[[nodiscard]] std::optional<FileStamp> stampOf(const std::filesystem::path& file);

/// Whether there is something at `file` that its folder does not have under this very name, as on a
/// disk that takes capital and small letters for the same: another file than the one meant.
[[nodiscard]] bool isSpelledOtherwise(const std::filesystem::path& file);

/// Where `file` leads after every symbolic link at its end was followed; the last target need not
/// exist. Links in a circle give `file` itself.
[[nodiscard]] std::filesystem::path followSymlinks(const std::filesystem::path& file);

/// The bytes of a regular file of at most `maxBytes`. `stamp` receives the state that was read.
[[nodiscard]] Result<std::string> readWholeFile(
    const std::filesystem::path& file, std::size_t maxBytes, FileStamp* stamp = nullptr);

/// Replaces the content of `file` by `bytes`: other programs and a machine that loses power see the
/// old content or the new one, whole. The folder must exist. A symbolic link at `file` stays and
/// its target is replaced; the mode of an existing file stays, a new one follows the umask. On an
/// error the old file is as it was and nothing is left beside it. Removes what processes that
/// died while writing left there. What is no regular file is never replaced. `stamp`
/// receives the new state.
[[nodiscard]] Result<void> writeFileAtomically(
    const std::filesystem::path& file, std::string_view bytes, FileStamp* stamp = nullptr);

/// Renames `file` to its name followed by `suffix`, or by `suffix` and "-2", "-3" …, but never over
/// another file. Gives the new path. A symbolic link stays and its target is renamed.
[[nodiscard]] Result<std::filesystem::path> moveAside(
    const std::filesystem::path& file, std::string_view suffix);

/// Makes what was made, renamed or removed in `folder` outlast a power cut. It is done already, so
/// there is nothing to undo and nothing to report where a file system cannot do this.
void syncFolder(const std::filesystem::path& folder);

/// Creates `folder` with its missing parents, to outlast a power cut; an existing folder is fine.
[[nodiscard]] Result<void> createFolders(const std::filesystem::path& folder);

} // namespace platform
