// Tells when a file may have changed.
#pragma once

#include "FileDescriptor.h"

#include <QSocketNotifier>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace platform {

/// Has the kernel tell what happens to the name of a file, so that nothing runs while nothing
/// happens. Symbolic links are followed, and neither the file nor its folder has to be there yet.
class FileWatch {
public:
    /// `changed` comes from the event loop a moment after the file was written, replaced, removed
    /// or found in a folder that appeared; what follows each other closely is told once. It may
    /// come without a change.
    FileWatch(std::filesystem::path file, std::function<void()> changed);

private:
    struct Place {
        std::filesystem::path folder;
        std::string name;
        /// Whether only its appearance matters: the first part of the path that is missing.
        bool isMissing = false;

        bool operator==(const Place&) const = default;
    };

    /// Everything on the way to the file that can change where it leads or what it holds.
    [[nodiscard]] std::vector<Place> places() const;
    void arm();
    void add(const Place& place);
    void readEvents();
    void settle();

    std::filesystem::path file_;
    std::function<void()> changed_;
    FileDescriptor events_;
    std::unique_ptr<QSocketNotifier> notifier_;
    QTimer settling_;
    std::vector<Place> armed_;
    /// The names that matter in each watched folder.
    std::map<int, std::set<std::string>> names_;
    bool lostFolder_ = false;
};

} // namespace platform
