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

enum class Base { config, data, home };

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
    Program { "Inkscape (Flatpak)",    Base::home, ".var/app/org.inkscape.Inkscape/config/inkscape",                 "palettes" },
    Program { "Krita (Flatpak)",       Base::home, ".var/app/org.kde.krita/data/krita",                              "palettes" },
    Program { "LibreOffice (Flatpak)", Base::home, ".var/app/org.libreoffice.LibreOffice/config/libreoffice/4/user", "config" },
    Program { "Krita (Snap)",          Base::home, "snap/krita/current/.local/share/krita",                          "palettes" },
    Program { "LibreOffice (Snap)",    Base::home, "snap/libreoffice/current/.config/libreoffice/4/user",            "config" },
};

struct GimpFolder {
    Base base;
    /// Has a root folder for every minor version, such as "2.10".
    const char* versions;
    const char* suffix;
};

constexpr std::array gimpFolders {
    GimpFolder { Base::config, "GIMP",                                 "" },
    GimpFolder { Base::home,   ".var/app/org.gimp.GIMP/config/GIMP",   " (Flatpak)" },
    GimpFolder { Base::home,   "snap/gimp/current/.config/GIMP",       " (Snap)" },
};
// clang-format on

struct Place {
    std::string program;
    path root;
    path palettes;
};

const path& folderOf(Base base, const PalettePublisher::Folders& folders)
{
    if (base == Base::home)
        return folders.home;
    return base == Base::config ? folders.config : folders.data;
}

std::vector<Place> gimpPlaces(const PalettePublisher::Folders& folders)
{
    std::vector<Place> places;
    for (const auto& root : folders.gimp)
        places.push_back({ "GIMP", root, root / "palettes" });
    for (const auto& [base, versions, suffix] : gimpFolders) {
        if (folderOf(base, folders).empty())
            continue;
        std::error_code ended;
        fs::directory_iterator entry(folderOf(base, folders) / versions, ended);
        for (; !ended && entry != fs::directory_iterator(); entry.increment(ended)) {
            const path root = entry->path();
            const std::string version = root.filename().string();
            if (version.find_first_not_of("0123456789.") == std::string::npos)
                places.push_back({ "GIMP " + version + suffix, root, root / "palettes" });
        }
    }
    const auto byRoot = [](const Place& a, const Place& b) { return a.root < b.root; };
    const auto sameRoot = [](const Place& a, const Place& b) { return a.root == b.root; };
    std::stable_sort(places.begin(), places.end(), byRoot);
    places.erase(std::unique(places.begin(), places.end(), sameRoot), places.end());
    return places;
}

std::vector<Place> placesIn(const PalettePublisher::Folders& folders)
{
    auto places = gimpPlaces(folders);
    for (const auto& root : folders.inkscape)
        places.push_back({ "Inkscape", root, root / "palettes" });
    for (const auto& program : programs)
        if (const path& base = folderOf(program.base, folders); !base.empty())
            places.push_back(
                { program.name, base / program.root, base / program.root / program.palettes });
    std::erase_if(places, [](const Place& place) {
        std::error_code ignored;
        return !fs::is_directory(place.root, ignored);
    });
    return places;
}

enum class Standing { absent, current, outdated, foreign };

constexpr std::size_t maxBytes = 4'000'000;

/// What is at the place of a copy. Anything that cannot be read as one of ours is the user's own.
Standing standingOf(
    const path& file, const std::string& text, const std::vector<std::string>& lastEntries)
{
    std::error_code ignored;
    if (fs::symlink_status(file, ignored).type() == fs::file_type::not_found)
        return Standing::absent;
    const auto content = readWholeFile(file, maxBytes);
    if (!content || isSpelledOtherwise(file))
        return Standing::foreign;
    if (content.value() == text)
        return Standing::current;
    const std::string line = "\n# " + std::string(marker) + "\n";
    const bool isOurs = content.value().find(line) != std::string::npos
        || (!lastEntries.empty() && gimpPaletteEntries(content.value()) == lastEntries);
    return isOurs ? Standing::outdated : Standing::foreign;
}

Result<void> makeFolder(const path& folder)
{
    if (::mkdir(folder.c_str(), S_IRWXU | S_IRWXG | S_IRWXO) != 0 && errno != EEXIST)
        return Error { "the folder " + folder.filename().string()
            + " could not be made: " + reasonText(errno) };
    syncFolder(folder.parent_path());
    return {};
}

/// Writes what is not there yet and may be.
Result<void> writeCopy(const path& file, const std::string& text, Standing standing)
{
    if (standing == Standing::current || standing == Standing::foreign)
        return {};
    if (auto made = makeFolder(file.parent_path()); !made)
        return made;
    auto written = writeFileAtomically(file, text);
    if (!written && standing == Standing::outdated) {
        std::error_code ignored;
        fs::remove(file, ignored);
    }
    return written;
}

/// Where the text that was published last is kept: nowhere when a file of the user's is there.
/// Without it a copy that its program wrote anew counts as the user's own: told, and not lost.
path keptFile(const path& folder, const path& name, const std::string& text)
{
    if (folder.empty() || standingOf(folder / name, text, {}) == Standing::foreign)
        return {};
    return folder / name;
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
        .home = directories.home,
        .kept = ColorListRegistry::defaultFolder(environment),
    };
    const auto add = [&](const char* variable, std::vector<path>& roots) {
        if (const auto value = environment(variable); value && !value->empty())
            roots.push_back(directories.home / *value);
    };
    add("GIMP2_DIRECTORY", folders.gimp);
    add("GIMP3_DIRECTORY", folders.gimp);
    add("INKSCAPE_PROFILE_DIR", folders.inkscape);
    return folders;
}

Result<Publication> PalettePublisher::publish(const ColorList& list) const
{
    // The same names are refused for both kinds of file, so the list's own check serves here too.
    if (const auto safe = colorListFileName(list.name()); !safe)
        return safe.error();
    const std::string text = gimpPaletteText(list, marker);
    const path name = list.name() + ".gpl";
    const path kept = keptFile(folders_.kept, name, text);
    const auto last = readWholeFile(kept, maxBytes);
    const auto lastEntries = gimpPaletteEntries(last ? last.value() : "");
    Publication publication;
    std::optional<Error> failure;
    for (const auto& [program, root, palettes] : placesIn(folders_)) {
        const path file = palettes / name;
        const Standing standing = standingOf(file, text, lastEntries);
        const auto written = writeCopy(file, text, standing);
        if (written)
            (standing == Standing::foreign ? publication.leftAlone : publication.copies)
                .push_back({ program, file });
        else if (!failure)
            failure = Error { "The color list was saved, but " + program
                + " did not get its copy, because " + written.error().description };
    }
    if (!kept.empty())
        static_cast<void>(writeFileAtomically(kept, text));
    if (failure)
        return *failure;
    return publication;
}

std::string Publication::summary() const
{
    std::string text;
    for (const auto& copy : copies)
        text += (text.empty() ? "" : ", ") + copy.program;
    std::string left;
    for (const auto& copy : leftAlone)
        left += (left.empty() ? "Left alone: " : ", ") + copy.program + "'s "
            + copy.file.filename().string();
    if (left.empty())
        return text;
    return text + (text.empty() ? "" : ". ") + left
        + (leftAlone.size() == 1 ? " was changed there." : " were changed there.");
}

} // namespace platform
