#include "FileWatch.h"

#include <array>
#include <chrono>
#include <system_error>

#include <sys/inotify.h>
#include <unistd.h>

namespace platform {

namespace {

using std::filesystem::path;

/// Long enough for a writer who takes several steps, too short to be noticed.
constexpr std::chrono::milliseconds settlingTime { 100 };

constexpr std::uint32_t appearance = IN_CREATE | IN_MOVED_TO;
constexpr std::uint32_t anyChange = appearance | IN_CLOSE_WRITE | IN_MOVED_FROM | IN_DELETE;
/// The watch itself is at its end, or events were lost.
constexpr std::uint32_t lost
    = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED | IN_Q_OVERFLOW;

path folderOf(const path& file)
{
    return file.has_parent_path() ? file.parent_path() : path(".");
}

} // namespace

FileWatch::FileWatch(path file, std::function<void()> changed)
    : file_(std::move(file))
    , changed_(std::move(changed))
{
    settling_.setSingleShot(true);
    settling_.setInterval(settlingTime);
    QObject::connect(&settling_, &QTimer::timeout, &settling_, [this] { settle(); });
    arm();
}

std::vector<FileWatch::Place> FileWatch::places() const
{
    constexpr std::size_t mostLinks = 40;
    std::vector<Place> places;
    std::error_code ignored;
    for (path next = file_; places.size() < mostLinks;) {
        path folder = folderOf(next);
        if (!std::filesystem::is_directory(folder, ignored)) {
            path missing = folder;
            while (missing != missing.parent_path()
                && !std::filesystem::is_directory(folderOf(missing), ignored))
                missing = missing.parent_path();
            places.push_back({ folderOf(missing), missing.filename().string(), true });
            break;
        }
        places.push_back({ folder, next.filename().string() });
        const path target = std::filesystem::read_symlink(next, ignored);
        if (ignored)
            break;
        next = folder / target;
    }
    return places;
}

void FileWatch::arm()
{
    notifier_.reset();
    events_ = FileDescriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!events_.isOpen())
        return;
    names_.clear();
    lostFolder_ = false;
    // A folder may appear between the look and the watch.
    do {
        armed_ = places();
        for (const auto& place : armed_)
            add(place);
    } while (armed_ != places());
    notifier_ = std::make_unique<QSocketNotifier>(events_.number(), QSocketNotifier::Read);
    QObject::connect(
        notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { readEvents(); });
}

void FileWatch::add(const Place& place)
{
    constexpr std::uint32_t always = IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR | IN_MASK_ADD;
    const int watch = ::inotify_add_watch(events_.number(), place.folder.c_str(),
        always | (place.isMissing ? appearance : anyChange));
    if (watch >= 0)
        names_[watch].insert(place.name);
}

void FileWatch::readEvents()
{
    alignas(inotify_event) std::array<char, 4096> buffer {};
    for (;;) {
        const auto length = ::read(events_.number(), buffer.data(), buffer.size());
        if (length <= 0)
            return;
        for (std::size_t at = 0; at < static_cast<std::size_t>(length);) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
            at += sizeof(inotify_event) + event->len;
            const bool isLost = (event->mask & lost) != 0;
            lostFolder_ = lostFolder_ || isLost;
            const bool matters = event->len > 0 && names_[event->wd].contains(event->name);
            if ((isLost || matters) && !settling_.isActive())
                settling_.start();
        }
    }
}

void FileWatch::settle()
{
    if (lostFolder_ || armed_ != places())
        arm();
    changed_();
}

} // namespace platform
