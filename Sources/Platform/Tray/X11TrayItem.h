// A tray item inside the window of an X11 tray.
#pragma once

#include "StatusIcon.h"
#include "StatusItem.h"

#include <QRect>
#include <QSystemTrayIcon>

#include <functional>

namespace platform {

/// Make one only while no host listens on the bus: Qt then takes the X11 tray, and stays with it.
class X11TrayItem {
public:
    struct Handlers {
        std::function<void()> activated;
        std::function<void()> middleClicked;
        std::function<void()> menuWanted;
    };

    X11TrayItem(const StatusItem::Content& content, const StatusIcon& icon, Handlers handlers);

    /// Empty while no tray has taken the item in.
    [[nodiscard]] QRect place() const { return item_.geometry(); }
    /// Matches the icon to the bar after the tray has had the time to paint it.
    void followBar();

private:
    void setIcon(StatusIcon::Bar bar);
    /// Looks at the bar itself: at a corner of the item that the drawing leaves free.
    void matchBar();

    const StatusIcon& icon_;
    StatusIcon::Bar bar_;
    QSystemTrayIcon item_;
};

} // namespace platform
