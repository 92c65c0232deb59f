// Where the user's files live: the home folder and the base folders of the desktop.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace platform {

/// The value of an environment variable, or nothing when it is not set.
using Environment = std::function<std::optional<std::string>(const char* name)>;

/// The variables of this process.
[[nodiscard]] Environment processEnvironment();

/// The user's folders, all absolute. None of them needs to exist.
struct Directories {
    std::filesystem::path home;
    std::optional<std::filesystem::path> dataHome;
    std::optional<std::filesystem::path> configHome;
    std::optional<std::filesystem::path> runtimeDir;

    /// Asks the environment. The home folder is $HOME, else the one in the user database, else "/".
    /// The data and configuration folders are $XDG_DATA_HOME and $XDG_CONFIG_HOME, else
    /// ".local/share" and ".config" in the home folder, else nothing when that is not known. The
    /// folder of the running session is $XDG_RUNTIME_DIR or nothing. Relative values count as not
    /// set.
    [[nodiscard]] static Directories fromEnvironment(
        const Environment& environment = processEnvironment());
};

} // namespace platform
