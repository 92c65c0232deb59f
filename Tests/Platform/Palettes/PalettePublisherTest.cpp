#include "PalettePublisher.h"

#include "AtomicFile.h"
#include "ChildProcess.h"
#include "GimpPalette.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <regex>
#include <sstream>

#include <sys/stat.h>

namespace platform {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

ColorList listNamed(const std::string& name, const Color& color = { 1, 0, 0, 1 })
{
    ColorList list(name);
    list.setColor(color, "One");
    return list;
}

struct Palette {
    std::string name;
    std::vector<std::string> entries;

    bool operator==(const Palette&) const = default;
};

bool isPlain(char c)
{
    return c == '\n' || c == '\t' || (c >= ' ' && c <= '~');
}

/// Reads a text as the strictest of the programs do; nothing when one of them would refuse it.
std::optional<Palette> readStrictly(const std::string& text)
{
    constexpr std::size_t shortest = 50;
    if (text.size() < shortest || !std::all_of(text.begin(), text.end(), isPlain)
        || text.back() != '\n')
        return std::nullopt;
    static const std::regex head("GIMP Palette\nName: ([!-~]([ -~]*[!-~])?)\n");
    static const std::string channel = "(25[0-5]|2[0-4][0-9]|1[0-9][0-9]|[1-9]?[0-9])";
    static const std::regex entry(
        channel + " " + channel + " " + channel + "\t[!-~]([ -~]*[!-~])?");
    std::smatch match;
    if (!std::regex_search(text, match, head, std::regex_constants::match_continuous))
        return std::nullopt;
    Palette palette { match[1], {} };
    std::istringstream lines(match.suffix());
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('#'))
            continue;
        if (!std::regex_match(line, entry))
            return std::nullopt;
        palette.entries.push_back(line);
    }
    return palette;
}

TEST(GimpPalette, IsReadByTheStrictestProgram)
{
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    ColorList list("Tintwell — día");
    list.setColor({ 110.0 / 255, 86.0 / 255, 207.0 / 255, 0.5 }, "Violet");
    list.setColor({ -3, 7, notANumber, 1 }, "Out\nof\trange");
    list.setColor({ 0.5, 0.498, 1.0 / 510, 1 }, " \r\n ");
    EXPECT_EQ(readStrictly(gimpPaletteText(list, "A comment")),
        (Palette { "Tintwell - dia",
            { "110 86 207\tViolet", "0 255 0\tOut of range", "128 127 1\tUntitled" } }));
    EXPECT_EQ(readStrictly(gimpPaletteText(ColorList("x"))), (Palette { "x", {} }));
}

TEST(GimpPalette, WritesNamesInPlainAscii)
{
    const std::vector<std::pair<std::string, std::string>> cases {
        { "Deep Azure", "Deep Azure" },
        { "light — on·primary", "light - on?primary" },
        { "−30° “x” ‘y’ …", "-30? ?x? 'y' ..." },
        { "Größe Œuvre Øl Łódź Naïve", "Gro?e ?uvre ?l ?odz Naive" },
        { "e\u0301\u200b½\u00a0x²", "e1/2 x2" },
        { "日本", "??" },
        { "a\xff\xc3", "a??" },
        { std::string("a\0\x1b\x7f\u0085\u2028z", 10), "a   ??z" },
    };
    for (const auto& [text, plain] : cases)
        EXPECT_EQ(plainAscii(text), plain);
}

/// A home in which some programs are installed.
class Home {
public:
    void install(const std::string& root) const { fs::create_directories(path(root)); }
    [[nodiscard]] fs::path path(const std::string& name) const { return folder_.path() / name; }
    [[nodiscard]] PalettePublisher publisher() const
    {
        return PalettePublisher({ path("config"), path("data"), folder_.path(),
            { path("own-gimp") }, { path("own-inkscape") }, path("lists") });
    }
    [[nodiscard]] std::string content(const std::string& name) const
    {
        return contentOf(path(name));
    }
    /// Every file below the home.
    [[nodiscard]] Names files() const
    {
        Names names;
        for (const auto& entry : fs::recursive_directory_iterator(folder_.path()))
            if (!entry.is_directory())
                names.push_back(entry.path().lexically_relative(folder_.path()).string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    TemporaryFolder folder_;
};

TEST(PalettePublisher, ReachesEachProgramThatIsThere)
{
    struct Case {
        std::string name;
        std::string root;
        std::string file;
    };
    const std::vector<Case> programs {
        { "GIMP 2.10", "config/GIMP/2.10", "/palettes/T.gpl" },
        { "GIMP 3.0", "config/GIMP/3.0", "/palettes/T.gpl" },
        { "GIMP 2.10 (Flatpak)", ".var/app/org.gimp.GIMP/config/GIMP/2.10", "/palettes/T.gpl" },
        { "GIMP 2.10 (Snap)", "snap/gimp/current/.config/GIMP/2.10", "/palettes/T.gpl" },
        { "GIMP", "own-gimp", "/palettes/T.gpl" },
        { "Inkscape", "config/inkscape", "/palettes/T.gpl" },
        { "Inkscape", "own-inkscape", "/palettes/T.gpl" },
        { "Inkscape (Flatpak)", ".var/app/org.inkscape.Inkscape/config/inkscape",
            "/palettes/T.gpl" },
        { "Krita", "data/krita", "/palettes/T.gpl" },
        { "Krita (Flatpak)", ".var/app/org.kde.krita/data/krita", "/palettes/T.gpl" },
        { "Krita (Snap)", "snap/krita/current/.local/share/krita", "/palettes/T.gpl" },
        { "LibreOffice", "config/libreoffice/4/user", "/config/T.gpl" },
        { "LibreOffice (Flatpak)", ".var/app/org.libreoffice.LibreOffice/config/libreoffice/4/user",
            "/config/T.gpl" },
        { "LibreOffice (Snap)", "snap/libreoffice/current/.config/libreoffice/4/user",
            "/config/T.gpl" },
    };
    const Home all;
    Names expected;
    for (const auto& [name, root, below] : programs) {
        SCOPED_TRACE(root);
        const auto file = root + below;
        const Home alone;
        alone.install(root);
        const auto published = alone.publisher().publish(listNamed("T"));
        ASSERT_TRUE(published);
        EXPECT_EQ(published.value().summary(), name);
        EXPECT_EQ(alone.files(), Names { file });
        EXPECT_EQ(readStrictly(alone.content(file)), (Palette { "T", { "255 0 0\tOne" } }));
        all.install(root);
        expected.push_back(file);
    }
    const auto published = all.publisher().publish(listNamed("T"));
    ASSERT_TRUE(published);
    EXPECT_EQ(published.value().copies.size(), programs.size());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(all.files(), expected);
}

TEST(PalettePublisher, MakesNoFolderForWhatIsNotThere)
{
    const Home home;
    for (const char* folder : { "config/GIMP/plug-ins", "config/libreoffice/4", "data" })
        home.install(folder);
    writeContent(home.path("config/inkscape"), "a file");
    const auto published = home.publisher().publish(listNamed("T"));
    ASSERT_TRUE(published);
    EXPECT_EQ(published.value().summary(), "");
    EXPECT_EQ(home.files(), Names { "config/inkscape" });
    EXPECT_FALSE(fs::exists(home.path("config/libreoffice/4/user")));
    EXPECT_TRUE(PalettePublisher({ {}, {} }).publish(listNamed("T")));
}

TEST(PalettePublisher, ReplacesItsOwnCopies)
{
    const Home home;
    home.install("data/krita");
    const std::string file = "data/krita/palettes/T.gpl";
    ASSERT_TRUE(home.publisher().publish(listNamed("T")));
    ASSERT_TRUE(home.publisher().publish(listNamed("T", { 0, 0, 1, 1 })));
    EXPECT_EQ(readStrictly(home.content(file)), (Palette { "T", { "0 0 255\tOne" } }));
    const auto before = stampOf(home.path(file));
    ASSERT_TRUE(home.publisher().publish(listNamed("T", { 0, 0, 1, 1 })));
    EXPECT_EQ(stampOf(home.path(file)), before);
    EXPECT_EQ(home.files(), Names { file });
}

TEST(PalettePublisher, KnowsACopyThatItsProgramWroteAnew)
{
    const Home home;
    home.install("config/GIMP/2.10");
    home.install("config/inkscape");
    home.install("lists");
    const std::string file = "config/GIMP/2.10/palettes/T.gpl";
    const auto rewritten = [&](const std::string& entry) {
        writeContent(home.path(file), "GIMP Palette\nName: T\nColumns: 3\n#\n" + entry + "\n");
    };
    ASSERT_TRUE(home.publisher().publish(listNamed("T")));
    rewritten("255   0   0\tOne ");
    auto published = home.publisher().publish(listNamed("T", { 0, 0, 1, 1 }));
    ASSERT_TRUE(published);
    EXPECT_EQ(published.value().summary(), "GIMP 2.10, Inkscape");
    EXPECT_EQ(readStrictly(home.content(file)), (Palette { "T", { "0 0 255\tOne" } }));
    for (const char* changed : { "  0   0 254\tOne", "  0   0 255\tTwo", "255   0   0\tOne" }) {
        rewritten(changed);
        const auto before = home.content(file);
        published = home.publisher().publish(listNamed("T", { 0, 0, 1, 1 }));
        ASSERT_TRUE(published);
        EXPECT_EQ(published.value().summary(),
            "Inkscape. Left alone: GIMP 2.10's T.gpl was changed there.");
        EXPECT_EQ(home.content(file), before);
    }
}

TEST(PalettePublisher, LeavesTheUsersOwnPalettes)
{
    const std::string own = "GIMP Palette\nName: T\n1 2 3\tCopied by Tintwell\n";
    const Home home;
    for (const char* folder : { "config/GIMP/1.0/palettes/T.gpl", "config/GIMP/2.0/palettes",
             "config/GIMP/3.0/palettes", "config/GIMP/4.0/palettes", "lists" })
        home.install(folder);
    for (const char* file : { "config/GIMP/2.0/palettes/T.gpl", "lists/T.gpl" })
        writeContent(home.path(file), own);
    ASSERT_EQ(::mkfifo(home.path("config/GIMP/3.0/palettes/T.gpl").c_str(), 0600), 0);
    fs::create_symlink(home.path("nowhere"), home.path("config/GIMP/4.0/palettes/T.gpl"));
    const auto before = home.files();
    const auto published = home.publisher().publish(listNamed("T"));
    ASSERT_TRUE(published);
    EXPECT_EQ(published.value().summary(),
        "Left alone: GIMP 1.0's T.gpl, GIMP 2.0's T.gpl, GIMP 3.0's T.gpl, GIMP 4.0's T.gpl were "
        "changed there.");
    EXPECT_EQ(
        home.content("config/GIMP/2.0/palettes/T.gpl") + home.content("lists/T.gpl"), own + own);
    EXPECT_EQ(home.files(), before);
}

TEST(PalettePublisher, NamesTheFirstProgramThatFailedAfterTheOthers)
{
    EXPECT_TRUE(holdsForOrdinaryUser([] {
        const Home home;
        for (const char* root : { "config/GIMP/3.0", "config/inkscape/palettes", "data/krita" })
            home.install(root);
        ::chmod(home.path("config/GIMP/3.0").c_str(), 0555);
        ::chmod(home.path("config/inkscape/palettes").c_str(), 0555);
        const auto published = home.publisher().publish(listNamed("T"));
        ::chmod(home.path("config/GIMP/3.0").c_str(), 0755);
        ::chmod(home.path("config/inkscape/palettes").c_str(), 0755);
        return !published
            && published.error().description
            == "The color list was saved, but GIMP 3.0 did not get its copy, because the folder "
               "palettes could not be made: permission is denied"
            && home.files() == Names { "data/krita/palettes/T.gpl" };
    }));
}

TEST(PalettePublisher, RemovesACopyThatItCannotReplace)
{
    const Home home;
    home.install("data/krita");
    ASSERT_TRUE(home.publisher().publish(listNamed("T")));
    EXPECT_TRUE(holdsWithFullDisk(16, [&] {
        return !home.publisher().publish(listNamed("T", { 0, 0, 1, 1 })).hasValue();
    }));
    EXPECT_EQ(home.files(), Names {});
}

TEST(PalettePublisher, RefusesNamesThatAreNoFileNames)
{
    const Home home;
    home.install("data/krita");
    for (const char* name : { "", "..", "../T", "a/b" })
        EXPECT_FALSE(home.publisher().publish(listNamed(name))) << name;
    EXPECT_EQ(home.files(), Names {});
}

TEST(PalettePublisher, TakesFoldersFromTheEnvironment)
{
    std::map<std::string, std::string> variables { { "HOME", "/h" }, { "XDG_CONFIG_HOME", "/c" },
        { "GIMP2_DIRECTORY", "/g" }, { "GIMP3_DIRECTORY", ".g3" },
        { "INKSCAPE_PROFILE_DIR", "/i" } };
    const auto environment = [&](const char* name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    };
    const auto folders = PalettePublisher::userFolders(environment);
    EXPECT_EQ(folders.config, "/c");
    EXPECT_EQ(folders.data, "/h/.local/share");
    EXPECT_EQ(folders.home, "/h");
    EXPECT_EQ(folders.inkscape, std::vector<fs::path> { "/i" });
    EXPECT_EQ(folders.gimp, (std::vector<fs::path> { "/g", "/h/.g3" }));
    variables["GIMP2_DIRECTORY"] = "";
    EXPECT_EQ(PalettePublisher::userFolders(environment).gimp, std::vector<fs::path> { "/h/.g3" });
}

} // namespace
} // namespace platform
