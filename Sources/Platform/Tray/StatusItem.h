// The application's item in the desktop's tray.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// A rectangle in logical screen coordinates.
struct ScreenRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const ScreenRect&) const = default;
};

/// An item with an icon and a menu that appears in whichever tray there is and moves when another
/// one takes over.
class StatusItem {
public:
    enum class Presence {
        /// No tray so far, or the tray went away.
        waiting,
        shown,
        /// No tray turned up, or came back, in the time that a desktop needs to start one; one may
        /// still come.
        absent
    };

    struct MenuEntry {
        std::string title;
        std::function<void()> action;
    };

    struct Content {
        /// The application's reverse-DNS name; also names its symbolic icon in the icon theme.
        std::string id;
        std::string title;
        std::vector<MenuEntry> menu;
    };

    struct Events {
        /// The item was clicked; the rectangle is the item's, or a point on it, where the desktop
        /// tells.
        std::function<void(std::optional<ScreenRect>)> activated;
        std::function<void(Presence)> presenceChanged;
    };

    virtual ~StatusItem() = default;

    [[nodiscard]] virtual Presence presence() const = 0;
    /// Where the item is, if the tray tells.
    [[nodiscard]] virtual std::optional<ScreenRect> place() const = 0;
};

} // namespace platform
