// Copies of a colour list in the palette folders of the user's drawing programs.
#pragma once

#include "ColorList.h"
#include "Directories.h"
#include "Result.h"

#include <filesystem>
#include <string>
#include <vector>

namespace platform {

/// Writes a list as a GIMP palette text for every installed program that reads one.
class PalettePublisher {
public:
    /// Where the programs' own folders lie.
    struct Folders {
        /// The user's configuration and data folders; empty when unknown.
        std::filesystem::path config;
        std::filesystem::path data;
        /// Folders that GIMP was told to use in place of its own.
        std::vector<std::filesystem::path> gimp {};
    };

    explicit PalettePublisher(Folders folders = userFolders(processEnvironment()));

    /// The folders of this user: $XDG_CONFIG_HOME and $XDG_DATA_HOME or their defaults,
    /// $GIMP2_DIRECTORY and $GIMP3_DIRECTORY (relative ones start at home).
    [[nodiscard]] static Folders userFolders(const Environment& environment = processEnvironment());

    /// Publishes `list` to each program whose own root folder exists; returns the files that hold
    /// it now. A file of that name without our marker is the user's own and stays. The error names
    /// the first program that failed and why, after all others were tried; an older copy that could
    /// not be replaced is removed.
    Result<std::vector<std::filesystem::path>> publish(const ColorList& list) const;

private:
    Folders folders_;
};

} // namespace platform
