// When and where the panel shows: beside its item in the tray, or as an ordinary window.
#pragma once

#include "MainPanel.h"
#include "ScreenLock.h"
#include "Settings.h"
#include "SingleInstance.h"
#include "StatusItem.h"

#include <QRect>

#include <optional>
#include <vector>

namespace tintwell {

/// Puts the item into the tray, and sees to it that something always reaches the process: where no
/// tray turns up the panel opens as a window, and without either the process ends.
class PanelPresenter {
public:
    /// `applicationID` names the item and its icon.
    PanelPresenter(const char* applicationID, DesktopServices& services, Settings& settings,
        platform::StatusItem::FirstTray firstTray);

    void show();
    /// Picks a colour, and shows the panel with it.
    void sample();
    /// Picks a colour and copies it; `answer` may be empty.
    void pick(const platform::SingleInstance::Answer& answer);
    /// One of the application's ordinary windows was closed by the user.
    void windowClosed();

private:
    [[nodiscard]] std::vector<platform::StatusItem::MenuEntry> menu();
    void copySource();
    void pickEnded();
    void itemActivated(const std::optional<QRect>& place);
    void trayChanged(platform::StatusItem::Presence presence);
    /// Opens the panel as a window where nothing else would reach the process.
    void standIn();
    /// Where the item is, or was when it was last clicked, or most likely is.
    [[nodiscard]] QRect anchor() const;
    [[nodiscard]] bool hasTray() const;
    /// True where the panel can stand beside its item.
    [[nodiscard]] bool canDock() const;

    DesktopServices& services_;
    Settings& settings_;
    platform::ScreenLock lock_;
    MainPanel panel_;
    std::optional<QRect> lastPlace_;
    /// The window has opened by itself, for want of a tray.
    bool standsIn_ = false;
    /// The item's menu began the pick.
    bool showsAfterPick_ = false;
    platform::StatusItem item_;
};

} // namespace tintwell
