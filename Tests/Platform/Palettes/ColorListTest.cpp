#include "ColorList.h"

#include "ChildProcess.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <limits>

#include <sys/stat.h>

namespace platform {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

ColorList listNamed(const std::string& name, const Color& color = { 0.25, 0.5, 1, 1 })
{
    ColorList list(name);
    list.setColor(color, "One");
    return list;
}

Names namesIn(const ColorListRegistry& registry)
{
    Names names;
    for (const auto& list : registry.availableColorLists())
        names.push_back(list.name());
    return names;
}

/// A list as text, for what `ColorListRegistry` itself does not write.
std::string textWith(const std::string& colors, const std::string& more = {})
{
    return R"({"name":"x","colors":[)" + colors + "]" + more + "}";
}

TEST(ColorList, KeysKeepTheirOrderAndAreThereOnce)
{
    ColorList list("L");
    for (const char* key : { "b", "a", "c", "a" })
        list.setColor({ 0, 0, 0, 1 }, key);
    EXPECT_EQ(list.allKeys(), (Names { "b", "a", "c" }));
    list.setColor({ 1, 0, 0, 1 }, "b");
    EXPECT_EQ(list.colors().front().second.red, 1);
}

TEST(ColorListRegistry, WritesItsFileFormToTheByte)
{
    const TemporaryFolder folder;
    const ColorListRegistry registry(folder / "Library/Colors");
    ColorList list("Tintwell — ä");
    list.setColor({ 1.0 / 3, 0, 1, 0.5 }, "Deep \"Azure\"\n");
    const auto written = registry.write(list);
    ASSERT_TRUE(written);
    EXPECT_EQ(written.value(), folder / "Library/Colors/Tintwell — ä.clr");
    EXPECT_EQ(contentOf(written.value()),
        R"({
  "colors": [
    {
      "alpha": 0.5,
      "blue": 1,
      "green": 0,
      "key": "Deep \"Azure\"\n",
      "red": 0.3333333333333333
    }
  ],
  "name": "Tintwell — ä"
}
)");
}

TEST(ColorListRegistry, ReadsBackWhatItWrote)
{
    const TemporaryFolder folder;
    const ColorListRegistry registry(folder.path());
    ColorList list("L");
    list.setColor({ -1.5, 1e300, 5e-324, 0.5 }, "far outside");
    list.setColor({ 0.1, 0.7000000000000001, 0.30000000000000004, 1 }, std::string("a\0b", 3));
    ASSERT_TRUE(registry.write(list));
    const auto lists = registry.availableColorLists();
    ASSERT_EQ(lists.size(), 1U);
    EXPECT_EQ(lists[0].name(), "L");
    EXPECT_EQ(lists[0].file(), folder / "L.clr");
    EXPECT_TRUE(lists[0].isEditable());
    EXPECT_EQ(lists[0].colors(), list.colors());
}

TEST(ColorListRegistry, GoesByFileNames)
{
    const TemporaryFolder folder;
    const ColorListRegistry registry(folder.path());
    EXPECT_TRUE(ColorListRegistry(folder / "missing").availableColorLists().empty());
    for (const char* file : { "b.clr", "a.clr", "notes.txt", ".hidden.clr", ".clr", "c.CLR" })
        writeContent(folder / file, textWith("", R"(,"more":[1])"));
    EXPECT_EQ(namesIn(registry), (Names { "a", "b" }));
    fs::rename(folder / "a.clr", folder / "z.clr");
    EXPECT_EQ(namesIn(registry), (Names { "b", "z" }));
}

TEST(ColorListRegistry, KeepsTheFirstOfRepeatedKeys)
{
    const TemporaryFolder folder;
    writeContent(folder / "L.clr",
        textWith(R"({"key":"a","red":1,"green":0,"blue":0,"alpha":1},)"
                 R"({"key":"a","red":0,"green":0,"blue":0,"alpha":1})"));
    const auto lists = ColorListRegistry(folder.path()).availableColorLists();
    ASSERT_EQ(lists.size(), 1U);
    ASSERT_EQ(lists[0].colors().size(), 1U);
    EXPECT_EQ(lists[0].colors()[0].second.red, 1);
}

TEST(ColorListRegistry, PassesOverWhatIsNoListAndNeverReplacesIt)
{
    const std::string entry = R"({"key":"a","red":1,"green":0,"blue":0,"alpha":1})";
    const std::vector<std::pair<const char*, std::string>> contents {
        { "empty", "" },
        { "another program's", "bplist00\xd4\x01\x02" },
        { "followed by more", textWith(entry) + "x" },
        { "larger than any list", textWith("") + std::string(4'000'000, ' ') },
        { "without a name", R"({"colors":[]})" },
        { "with a number for a name", R"({"name":1,"colors":[]})" },
        { "without colors", R"({"name":"x"})" },
        { "with text for a component", textWith(R"({"key":"a","red":"1"})") },
        { "without alpha", textWith(R"({"key":"a","red":1,"green":0,"blue":0})") },
        { "without a key", textWith(R"({"red":1,"green":0,"blue":0,"alpha":1})") },
        { "with a word for editable", textWith(entry, R"(,"editable":"no")") },
    };
    for (const auto& [name, content] : contents) {
        SCOPED_TRACE(name);
        const TemporaryFolder folder;
        const ColorListRegistry registry(folder.path());
        writeContent(folder / "L.clr", content);
        EXPECT_EQ(namesIn(registry), Names {});
        const auto written = registry.write(listNamed("L"));
        ASSERT_FALSE(written);
        EXPECT_EQ(written.error().description,
            "L.clr in " + folder.path().string() + " is not a color list and was left as it is");
        EXPECT_EQ(contentOf(folder / "L.clr"), content);
    }
}

TEST(ColorListRegistry, PassesOverWhatIsNoFileAndNeverReplacesIt)
{
    const TemporaryFolder folder;
    const ColorListRegistry registry(folder.path());
    ASSERT_EQ(::mkfifo((folder / "pipe.clr").c_str(), 0600), 0);
    fs::create_directory(folder / "folder.clr");
    fs::create_symlink(folder / "circle.clr", folder / "circle.clr");
    fs::create_symlink("/dev/zero", folder / "device.clr");
    const auto before = folder.names();
    EXPECT_EQ(namesIn(registry), Names {});
    for (const char* name : { "pipe", "folder", "circle", "device" })
        EXPECT_FALSE(registry.write(listNamed(name))) << name;
    EXPECT_EQ(registry.write(listNamed("folder")).error().description,
        "folder.clr could not be written: a folder is in its place");
    EXPECT_EQ(folder.names(), before);
}

TEST(ColorListRegistry, FollowsADanglingLinkAndNamesAMissingPermission)
{
    EXPECT_TRUE(holdsForOrdinaryUser([] {
        const TemporaryFolder folder;
        const ColorListRegistry registry(folder.path());
        fs::create_symlink("elsewhere", folder / "L.clr");
        const bool isFollowed = registry.write(listNamed("L")).hasValue()
            && fs::is_symlink(folder / "L.clr") && namesIn(registry) == Names { "L" };
        ::chmod((folder / "elsewhere").c_str(), 0200);
        const auto written = registry.write(listNamed("L"));
        return isFollowed && !written
            && written.error().description == "L.clr could not be read: permission is denied";
    }));
}

TEST(ColorListRegistry, TellsWhatMayBeChanged)
{
    struct Case {
        const char* name;
        const char* more;
        mode_t file;
        mode_t folder;
        bool editable;
    };
    for (const Case& c : {
             Case { "plain", "", 0644, 0755, true },
             Case { "says that it may", R"(,"editable":true)", 0644, 0755, true },
             Case { "says that it may not", R"(,"editable":false)", 0644, 0755, false },
             Case { "read-only file", "", 0444, 0755, false },
             Case { "read-only folder", "", 0644, 0555, false },
         }) {
        SCOPED_TRACE(c.name);
        EXPECT_TRUE(holdsForOrdinaryUser([&] {
            const TemporaryFolder folder;
            const auto lists = folder / "lists";
            fs::create_directory(lists);
            writeContent(lists / "L.clr", textWith("", c.more));
            fs::create_symlink(lists / "L.clr", folder / "link.clr");
            ::chmod((lists / "L.clr").c_str(), c.file);
            ::chmod(lists.c_str(), c.folder);
            const auto direct = ColorListRegistry(lists).availableColorLists();
            const auto linked = ColorListRegistry(folder.path()).availableColorLists();
            ::chmod(lists.c_str(), 0755);
            return direct.size() == 1 && direct[0].isEditable() == c.editable && linked.size() == 1
                && linked[0].isEditable() == c.editable;
        }));
    }
}

TEST(ColorListRegistry, RefusesNamesThatAreNoFileNames)
{
    const TemporaryFolder folder;
    const auto lists = folder / "lists";
    const std::vector<std::pair<std::string, std::string>> cases {
        { "", "A color list cannot be saved under the name \"\"" },
        { ".", "A color list cannot be saved under the name \".\"" },
        { "..", "A color list cannot be saved under the name \"..\"" },
        { "../up", "A color list cannot be saved under the name \"../up\"" },
        { "a/b", "A color list cannot be saved under the name \"a/b\"" },
        { "/tmp/x", "A color list cannot be saved under the name \"/tmp/x\"" },
        { ".hidden", "A color list cannot be saved under the name \".hidden\"" },
        { std::string("a\0b", 3),
            "A color list cannot be saved under the name \"" + std::string("a\0b", 3) + "\"" },
        { std::string(201, 'x'), "The name of the color list is too long for a file" },
        { "a\xff", "The name of the color list is not valid text" },
    };
    for (const auto& [name, description] : cases) {
        const auto written = ColorListRegistry(lists).write(listNamed(name));
        ASSERT_FALSE(written) << name;
        EXPECT_EQ(written.error().description, description);
    }
    EXPECT_EQ(folder.names(), Names {});
    for (const std::string& name :
        { std::string("日本語 — Ä"), std::string(200, 'x'), std::string("a.b") }) {
        EXPECT_TRUE(ColorListRegistry(lists).write(listNamed(name))) << name;
        EXPECT_EQ(namesIn(ColorListRegistry(lists)), Names { name });
        fs::remove_all(lists);
    }
}

TEST(ColorListRegistry, AFailedWriteLeavesTheEarlierList)
{
    const TemporaryFolder folder;
    const ColorListRegistry registry(folder.path());
    ASSERT_TRUE(registry.write(listNamed("L")));
    const auto before = contentOf(folder / "L.clr");
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinite = std::numeric_limits<double>::infinity();

    ColorList unnamed("L");
    unnamed.setColor({ 0, 0, 0, 1 }, "\xc3");
    ColorList large("L");
    large.setColor({ 0, 0, 0, 1 }, std::string(4'000'000, 'x'));
    const std::vector<std::pair<ColorList, std::string>> cases {
        { listNamed("L", { notANumber, 0, 0, 1 }),
            "The color One has a component that is not a number" },
        { listNamed("L", { 0, 0, 0, -infinite }),
            "The color One has a component that is not a number" },
        { unnamed, "The name of a color is not valid text" },
        { large, "The color list is too large" },
    };
    for (const auto& [list, description] : cases) {
        const auto written = registry.write(list);
        ASSERT_FALSE(written) << description;
        EXPECT_EQ(written.error().description, description);
    }
    EXPECT_EQ(contentOf(folder / "L.clr"), before);
    EXPECT_EQ(folder.names(), Names { "L.clr" });
}

TEST(ColorListRegistry, WritesToAFileOfTheCallersChoice)
{
    const TemporaryFolder folder;
    const ColorListRegistry registry(folder / "lists");
    writeContent(folder / "notes.txt", "old");
    fs::create_symlink(folder / "notes.txt", folder / "link");
    ASSERT_TRUE(registry.write(listNamed("a/b"), folder / "link"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_NE(contentOf(folder / "notes.txt").find(R"("name": "a\/b")"), std::string::npos);

    const auto written = registry.write(listNamed("L"), folder / "missing/L.clr");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().description, "L.clr could not be written: its folder is missing");

    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(registry.write(listNamed("L"), folder / "pipe").error().description,
        "pipe could not be written: it is not a regular file");
}

} // namespace
} // namespace platform
