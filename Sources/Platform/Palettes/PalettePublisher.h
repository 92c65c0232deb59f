// Copies of a colour list in the palette folders of the user's drawing programs.
#pragma once

#include "ColorList.h"
#include "Directories.h"
#include "Result.h"

#include <filesystem>
#include <string>
#include <vector>

namespace platform {

/// Who has a list now.
struct Publication {
    struct Copy {
        std::string program;
        std::filesystem::path file;
    };
    std::vector<Copy> copies {};
    /// Files that are the user's own, so that their programs did not get the list.
    std::vector<Copy> leftAlone {};

    /// "GIMP 2.10, Inkscape. Left alone: Krita's Tintwell.gpl was changed there."; empty when no
    /// program is there.
    [[nodiscard]] std::string summary() const;
};

/// Writes a list as a GIMP palette text for every installed program that reads one.
class PalettePublisher {
public:
    /// Where the programs' own folders lie.
    struct Folders {
        /// The user's configuration, data and home folders; empty when unknown.
        std::filesystem::path config;
        std::filesystem::path data;
        std::filesystem::path home {};
        /// Folders that GIMP and Inkscape were told to use in place of their own.
        std::vector<std::filesystem::path> gimp {};
        std::vector<std::filesystem::path> inkscape {};
        /// Where the text that was published last is kept; nowhere when empty.
        std::filesystem::path kept {};
    };

    explicit PalettePublisher(Folders folders = userFolders(processEnvironment()));

    /// The folders of this user: $XDG_CONFIG_HOME and $XDG_DATA_HOME or their defaults,
    /// $GIMP2_DIRECTORY, $GIMP3_DIRECTORY and $INKSCAPE_PROFILE_DIR (relative ones start at home).
    /// What was published is kept beside the colour lists.
    [[nodiscard]] static Folders userFolders(const Environment& environment = processEnvironment());

    /// Publishes `list` to each program whose own root folder exists, sandboxed ones too. A file of
    /// that name is replaced when it has our marker or, as some programs write palettes anew
    /// without it, the entries that were published last; any other is the user's own and stays. The
    /// error names the first program that failed and why, after all others were tried; an older
    /// copy that could not be replaced is removed.
    Result<Publication> publish(const ColorList& list) const;

private:
    Folders folders_;
};

} // namespace platform
