// The application's item in the desktop's tray.
#pragma once

#include "StatusIcon.h"

#include <QPoint>
#include <QRect>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform {

class NotifierItem;
class TrayWatch;
class X11TrayItem;

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
        /// Set for an entry that its action switches on and off.
        std::function<bool()> isOn {};
    };

    struct Content {
        /// The application's reverse-DNS name; also names its symbolic icon in the icon theme.
        std::string id;
        std::string title;
        std::vector<MenuEntry> menu;
    };

    struct Events {
        /// The item was clicked; the rectangle, in logical screen coordinates, is the item's, or a
        /// point on it, where the desktop tells.
        std::function<void(std::optional<QRect>)> activated;
        /// The same with the middle button.
        std::function<void()> middleClicked;
        std::function<void(Presence)> presenceChanged;
    };

    /// Whether a desktop without a tray may be one that is still starting its own.
    enum class FirstTray { isThereOrNever, mayBeLate };

    /// Puts the item into the tray, now or as soon as there is one; its events start with the next
    /// turn of the event loop.
    StatusItem(Content content, Events events, StatusIconPainter paintIcon, FirstTray firstTray);
    ~StatusItem();
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;

    [[nodiscard]] Presence presence() const { return presence_; }
    /// Where the item is, if the tray tells.
    [[nodiscard]] std::optional<QRect> place() const;
    /// Gives an absent tray the time again that a desktop needs to start one.
    void waitForTray();
    /// Counts a tray that is not there as absent at once.
    void stopWaiting();

private:
    void followTray();
    void followTheme();
    void showNotifier();
    void showInX11Tray();
    void activate(QPoint hint) const;
    void popUpMenu(QPoint hint) const;
    void setPresence(Presence presence);

    Content content_;
    Events events_;
    StatusIcon icon_;
    std::unique_ptr<TrayWatch> watch_;
    QTimer grace_;
    Presence presence_ = Presence::waiting;
    /// One may come late, or has been there.
    bool expectsTray_;
    std::unique_ptr<NotifierItem> notifier_;
    std::unique_ptr<X11TrayItem> inX11Tray_;
};

} // namespace platform
