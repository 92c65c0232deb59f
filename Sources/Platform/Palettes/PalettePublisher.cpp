#include "PalettePublisher.h"

#include "AtomicFile.h"
#include "GimpPalette.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include <sys/stat.h>

namespace platform {

namespace {

namespace fs = std::filesystem;
using fs::path;

/// Tells our copies from palettes that the user made. Files from earlier versions carry it, so it
/// never changes.
constexpr std::string_view marker
    = "Copied by Tintwell from the color list of this name; replaced with it.";

enum class Base { config, data };

struct Program {
    const char* name;
    Base base;
    /// The program's own folder; its presence says that the program is used.
    const char* root;
    /// Where below the root the program looks for palettes: one component.
    const char* palettes;
};

// clang-format off
constexpr std::array programs {
    Program { "Inkscape",    Base::config, "inkscape",           "palettes" },
    Program { "Krita",       Base::data,   "krita",              "palettes" },
    Program { "LibreOffice", Base::config, "libreoffice/4/user", "config" },
    Program { "MyPaint",     Base::data,   "mypaint",            "palettes" },
};
// clang-format on

struct Place {
    const char* program;
    path root;
    path palettes;
};

/// GIMP has a root folder for every minor version, such as "GIMP/2.10".
std::vector<path> gimpRoots(const PalettePublisher::Folders& folders)
{
    std::vector<path> roots = folders.gimp;
    std::error_code ended;
    if (!folders.config.empty()) {
        fs::directory_iterator entry(folders.config / "GIMP", ended);
        for (; !ended && entry != fs::directory_iterator(); entry.increment(ended)) {
            const std::string version = entry->path().filename().string();
            if (version.find_first_not_of("0123456789.") == std::string::npos)
                roots.push_back(entry->path());
        }
    }
    std::sort(roots.begin(), roots.end());
    roots.erase(std::unique(roots.begin(), roots.end()), roots.end());
    return roots;
}

std::vector<Place> placesIn(const PalettePublisher::Folders& folders)
{
    std::vector<Place> places;
    for (const auto& root : gimpRoots(folders))
        places.push_back({ "GIMP", root, root / "palettes" });
    for (const auto& program : programs) {
        const path& base = program.base == Base::config ? folders.config : folders.data;
        if (!base.empty())
            places.push_back(
                { program.name, base / program.root, base / program.root / program.palettes });
    }
    places.erase(std::remove_if(places.begin(), places.end(),
                     [](const Place& place) {
                         std::error_code ignored;
                         return !fs::is_directory(place.root, ignored);
                     }),
        places.end());
    return places;
}

enum class Standing { absent, current, outdated, foreign };

/// What is at the place of a copy. Anything that cannot be read as one of ours is the user's own.
Standing standingOf(const path& file, const std::string& text)
{
    constexpr std::size_t maxBytes = 4'000'000;
    std::error_code ignored;
    if (fs::symlink_status(file, ignored).type() == fs::file_type::not_found)
        return Standing::absent;
    const auto content = readWholeFile(file, maxBytes);
    if (!content)
        return Standing::foreign;
    if (content.value() == text)
        return Standing::current;
    const std::string line = "\n# " + std::string(marker) + "\n";
    return content.value().find(line) == std::string::npos ? Standing::foreign : Standing::outdated;
}

Result<void> makeFolder(const path& folder)
{
    if (::mkdir(folder.c_str(), S_IRWXU | S_IRWXG | S_IRWXO) != 0 && errno != EEXIST)
        return Error { "the folder " + folder.filename().string()
            + " could not be made: " + reasonText(errno) };
    syncFolder(folder.parent_path());
    return {};
}

Result<void> writeCopy(const path& file, const std::string& text, Standing standing)
{
    if (auto made = makeFolder(file.parent_path()); !made)
        return made;
    auto written = writeFileAtomically(file, text);
    if (!written && standing == Standing::outdated) {
        std::error_code ignored;
        fs::remove(file, ignored);
    }
    return written;
}

} // namespace

PalettePublisher::PalettePublisher(Folders folders)
    : folders_(std::move(folders))
{
}

PalettePublisher::Folders PalettePublisher::userFolders(const Environment& environment)
{
    const auto directories = Directories::fromEnvironment(environment);
    Folders folders {
        .config = directories.configHome.value_or(path()),
        .data = directories.dataHome.value_or(path()),
    };
    for (const char* const variable : { "GIMP2_DIRECTORY", "GIMP3_DIRECTORY" })
        if (const auto value = environment(variable); value && !value->empty())
            folders.gimp.push_back(directories.home / *value);
    return folders;
}

Result<std::vector<path>> PalettePublisher::publish(const ColorList& list) const
{
    // The same names are refused for both kinds of file, so the list's own check serves here too.
    if (const auto safe = colorListFileName(list.name()); !safe)
        return safe.error();
    const std::string text = gimpPaletteText(list, marker);
    std::vector<path> published;
    std::optional<Error> failure;
    for (const auto& place : placesIn(folders_)) {
        const path file = place.palettes / (list.name() + ".gpl");
        const Standing standing = standingOf(file, text);
        if (standing == Standing::foreign)
            continue;
        if (standing != Standing::current) {
            const auto written = writeCopy(file, text, standing);
            if (!written) {
                if (!failure)
                    failure = Error { "The color list was saved, but " + std::string(place.program)
                        + " did not get its copy, because " + written.error().description };
                continue;
            }
        }
        published.push_back(file);
    }
    if (failure)
        return *failure;
    return published;
}

} // namespace platform
