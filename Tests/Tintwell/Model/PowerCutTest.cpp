// Every state in which a power cut may leave a disk: what was not made to last may be there, be
// gone, be torn, or be there without what came before it.
#include "DurableHome.h"
#include "WatchedDisk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <map>
#include <set>

namespace tintwell {
namespace {

namespace fs = std::filesystem;
using Content = std::optional<std::string>;

/// What is below a folder by its path there; a folder has no content.
using Image = std::map<std::string, Content>;

Image imageOf(const fs::path& folder)
{
    Image image;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        image[entry.path().lexically_relative(folder).string()]
            = entry.is_directory() ? Content() : platform::contentOf(entry.path());
    return image;
}

void layOut(const Image& image, const fs::path& folder)
{
    fs::remove_all(folder);
    fs::create_directories(folder);
    for (const auto& [name, content] : image)
        if (content)
            platform::writeContent(folder / name, *content);
        else
            fs::create_directory(folder / name);
}

/// What is on a disk and what is still on its way there.
class Disk {
public:
    explicit Disk(fs::path folder)
        : folder_(std::move(folder))
    {
        for (const auto& [name, content] : imageOf(folder_)) {
            link(name, files_.size());
            files_.push_back({ content, true });
            links_.back().lasts = true;
        }
    }

    void follow(const DiskCall& call)
    {
        const auto name = call.file.lexically_relative(folder_).string();
        if (call.function == "mkdir" || (call.function == "open" && !now_.contains(name))) {
            link(name, files_.size());
            files_.push_back({ call.function == "open" ? Content("") : Content(), true });
        } else if (call.function == "write") {
            files_[now_.at(name)].content->append(call.bytes);
            files_[now_.at(name)].lasts = false;
        } else if (call.function == "fsync") {
            if (now_.contains(name))
                files_[now_.at(name)].lasts = true;
            for (auto& each : links_)
                each.lasts = each.lasts || (folder_ / each.name).parent_path() == call.file;
        } else if (call.function == "unlink") {
            link(name, nowhere);
        } else if (call.function.starts_with("rename")) {
            link(call.target.lexically_relative(folder_).string(), now_.at(name));
            link(name, nowhere);
            // A file may have both names for a while, but always one.
            links_.back().needs = links_.size() - 2;
        }
    }

    /// Adds every state that a power cut may leave now: of the links from `next` on, each that does
    /// not last may have been made or not.
    void cut(std::set<Image>& images, std::size_t next = 0, std::vector<bool> made = {}) const
    {
        for (made.resize(links_.size()); next < links_.size(); ++next) {
            const auto& each = links_[next];
            const bool canBe = each.needs == nowhere || made[each.needs];
            if (canBe && !each.lasts)
                cut(images, next + 1, made);
            made[next] = canBe;
        }
        std::map<std::string, std::size_t> names;
        for (std::size_t i = 0; i < links_.size(); ++i)
            if (made[i])
                names[links_[i].name] = links_[i].file;
        for (unsigned way = 0; way < waysToTear; ++way) {
            // In the order of names, so that a folder comes before what is in it.
            Image image;
            for (const auto& [name, file] : names)
                if (const auto folder = fs::path(name).parent_path().string();
                    file != nowhere && (folder.empty() || image.contains(folder)))
                    image[name] = files_[file].lasts ? files_[file].content
                                                     : torn(*files_[file].content, way);
            images.insert(std::move(image));
        }
    }

private:
    struct File {
        Content content;
        bool lasts;
    };
    struct Link {
        std::string name;
        std::size_t file;
        std::size_t needs;
        bool lasts = false;
    };
    static constexpr std::size_t nowhere = static_cast<std::size_t>(-1);
    static constexpr unsigned parts = 4;
    static constexpr unsigned waysToTear = (1U << parts) * (parts + 1);

    void link(const std::string& name, std::size_t file)
    {
        links_.push_back({ name, file, nowhere });
        now_[name] = file;
        if (file == nowhere)
            now_.erase(name);
    }

    /// It ends somewhere, and some parts of it were never written.
    static std::string torn(std::string content, unsigned way)
    {
        const std::size_t size = content.size();
        for (unsigned part = 0; part < parts; ++part)
            if ((way >> part & 1U) == 0)
                for (auto at = size * part / parts; at < size * (part + 1) / parts; ++at)
                    content[at] = '\0';
        return content.substr(0, size * (way >> parts) / parts);
    }

    fs::path folder_;
    std::vector<File> files_;
    std::vector<Link> links_;
    std::map<std::string, std::size_t> now_;
};

/// What is wrong with a state on the way from one image to another; nothing when all is well.
std::string faultIn(const Image& state, const Image& before, const Image& after)
{
    const auto has = [](const Image& image, const Content& content) {
        return std::any_of(
            image.begin(), image.end(), [&](const auto& file) { return file.second == content; });
    };
    const auto agree = [](const Image& image, const auto& file) {
        return image.contains(file.first) && image.at(file.first) == file.second;
    };
    for (const auto& file : state)
        if (!file.first.ends_with(".tmp") && !agree(before, file)
            && !agree(after, file)
            // It may have been moved aside.
            && (before.contains(file.first) || !has(before, file.second)))
            return file.first + " is neither the old nor the new one";
    for (const auto& [name, content] : before)
        if (!has(state, content) && (has(after, content) || !state.contains(name)))
            return name + " is lost";
    return {};
}

TEST(PowerCut, LeavesTheOldOrTheNew)
{
    struct Row {
        const char* what;
        std::function<void(DurableHome&)> before;
        bool installs;
        int fault = 0;
    };
    const auto saved = [](DurableHome& home) { ASSERT_TRUE(home.save("old")); };
    const auto unreadable = [](DurableHome& home) {
        fs::create_directories(home.library.parent_path());
        platform::writeContent(home.library, "not JSON");
    };
    const Row rows[] = {
        { "first save", [](DurableHome&) {}, false },
        { "save", saved, false },
        { "save that fails", saved, false, EDQUOT },
        { "save over what cannot be read", unreadable, false },
        { "the same, failing", unreadable, false, EDQUOT },
        { "first install", [](DurableHome&) {}, true },
        { "install", [](DurableHome& home) { ASSERT_TRUE(home.install("old")); }, true },
    };
    std::size_t cuts = 0;
    std::size_t states = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const platform::TemporaryFolder folder;
        DurableHome home(folder.path());
        if (row.installs)
            installPrograms(folder.path());
        row.before(home);
        const Image before = imageOf(folder.path());
        Disk disk(folder.path());
        std::set<Image> during { before };
        const auto refuse
            = [&](const DiskCall& call) { return call.function == "write" ? row.fault : 0; };
        const auto follow = [&](const DiskCall& call) {
            disk.follow(call);
            disk.cut(during);
            ++cuts;
        };
        whileWatching({ folder.path(), refuse, follow }, [&] {
            EXPECT_EQ(row.installs ? home.install("new").hasValue() : home.save("new").hasValue(),
                row.fault == 0);
        });
        const Image after = imageOf(folder.path());
        std::set<Image> done;
        disk.cut(done);
        EXPECT_TRUE(row.fault != 0 || done == std::set { after }) << "what was done did not last";
        states += during.size();
        for (const auto& state : during) {
            ASSERT_EQ(faultIn(state, before, after), "");
            // Whatever it is, life goes on from there.
            layOut(state, folder.path());
            ASSERT_TRUE(DurableHome(folder.path()).put("new"));
        }
    }
    std::printf("%zu cuts, %zu states\n", cuts, states);
}

} // namespace
} // namespace tintwell
