// The application's item in the desktop's tray.
#pragma once

#include "StatusIcon.h"

#include <QPoint>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QMenu;

namespace platform {

class NotifierItem;
class TrayWatch;
class X11TrayItem;

/// A rectangle in logical screen coordinates.
struct ScreenRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const ScreenRect&) const = default;
};

/// An item with an icon and a menu that appears in whichever tray there is, and moves when another
/// one takes over: over the bus where a tray host listens, else in the window of an X11 tray.
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

    /// Puts the item into the tray, now or as soon as there is one; its events start with the next
    /// turn of the event loop.
    StatusItem(Content content, Events events, StatusIconPainter paintIcon);
    ~StatusItem();
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;

    [[nodiscard]] Presence presence() const { return presence_; }
    /// Where the item is, if the tray tells.
    [[nodiscard]] std::optional<ScreenRect> place() const;

private:
    void followTray();
    void followTheme();
    void showNotifier();
    void showInX11Tray();
    void activate(QPoint hint) const;
    void popUpMenu(QPoint hint);
    void setPresence(Presence presence);

    Content content_;
    Events events_;
    StatusIcon icon_;
    std::unique_ptr<TrayWatch> watch_;
    QTimer grace_;
    Presence presence_ = Presence::waiting;
    std::unique_ptr<NotifierItem> notifier_;
    std::unique_ptr<X11TrayItem> inX11Tray_;
    std::unique_ptr<QMenu> menu_;
};

} // namespace platform
