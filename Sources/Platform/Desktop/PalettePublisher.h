// Copies of a colour list in the palette folders of the user's drawing programs.
#pragma once

#include "ColorList.h"
#include "Result.h"

#include <filesystem>
#include <string>
#include <vector>

namespace platform {

/// Writes a list as a GIMP palette text for every installed program that reads one.
class PalettePublisher {
public:
    /// The user's home, configuration and data folders, under which the programs' own folders lie.
    struct Folders {
        std::filesystem::path config;
        std::filesystem::path data;
    };

    explicit PalettePublisher(Folders folders);

    /// The folders of this user: $XDG_CONFIG_HOME and $XDG_DATA_HOME or their defaults.
    [[nodiscard]] static Folders userFolders();

    /// Publishes `list` to each program whose own root folder exists; returns the files that were
    /// written. A file of that name without our marker is the user's own and stays. The error names
    /// the first program that failed and why, after all others were tried.
    Result<std::vector<std::filesystem::path>> publish(const ColorList& list) const;

private:
    Folders folders_;
};

} // namespace platform
