// One call of the program: what it asks for, and doing it.
#pragma once

#include "ColorCommands.h"
#include "ExportCommand.h"
#include "LibraryCommands.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tintwell {

enum class Command {
    palette,
    exportColors,
    name,
    contrast,
    savePalette,
    listLibrary,
    deletePalette,
    usePalette,
    install,
    listColorLists,
    autostart,
};

/// What a command does not take stays empty.
struct Request {
    Command command = Command::palette;
    /// The colour texts as they were typed; "-" stands for one from standard input, or for a stream
    /// of them.
    std::optional<std::string> color {};
    std::string background {};
    /// "on", "off" or "status", when it is typed right.
    std::string autostart {};
    /// The first part of a saved palette's id.
    std::optional<std::string> id {};
    /// The library file; nothing is the user's own.
    std::optional<std::filesystem::path> library {};
    PaletteFormat paletteFormat = PaletteFormat::layout;
    ExportOrder exported {};
    LibraryFormat libraryFormat = LibraryFormat::layout;
    ColorChoice colorChoice = ColorChoice::automatic;
    /// Threads for a stream; 0 stands for all that the machine has.
    unsigned jobs = 0;
};

/// Does what `request` asks, for `terminal`. Only a stream writes to standard output itself; all
/// other output is in the report.
[[nodiscard]] Report perform(Request request, const Terminal& terminal);

} // namespace tintwell
