// The desktop application: a status item whose panel shows the root view.
#pragma once

#include "DesktopServices.h"
#include "DesktopSettings.h"
#include "PanelContent.h"
#include "SingleInstance.h"
#include "StatusItem.h"
#include "TintwellAppDelegate.h"

#include <QPointer>
#include <QRect>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform {
class PanelWindow;
}

namespace tintwell {

/// Made after Qt's application object and gone before it; main thread only.
class TintwellApp {
public:
    /// `arguments` are those of the process, the program's own name included.
    explicit TintwellApp(std::vector<std::string> arguments);
    ~TintwellApp();
    TintwellApp(const TintwellApp&) = delete;
    TintwellApp& operator=(const TintwellApp&) = delete;

    /// Runs until the application is asked to end; returns the process's exit code. A start beside
    /// a running process hands its wish over and returns at once.
    int run();

private:
    void launch();
    void followDesktop();
    void handle(const platform::ActivationRequest& request);
    void itemActivated(const std::optional<platform::ScreenRect>& place);
    void trayChanged(platform::StatusItem::Presence presence);
    /// Opens the panel as a window where nothing else would reach the process.
    void standIn();
    void sample();
    /// The application's own windows leave the screen while the user picks from it.
    void hideForPick();
    void showAfterPick();

    void showPanel();
    void showPanelAsWindow();
    /// Where the item is, or was when it was last clicked, or most likely is.
    [[nodiscard]] QRect anchor() const;
    /// True where the panel stands beside an item; else it is a window like any other.
    [[nodiscard]] bool isDocked() const;
    [[nodiscard]] bool hasTray() const;
    [[nodiscard]] bool hasOpenWindow() const;
    void windowClosed();
    [[nodiscard]] PanelContent& content();
    [[nodiscard]] platform::PanelWindow& panel();
    [[nodiscard]] platform::ContentWindow& window();

    std::vector<std::string> arguments_;
    /// None once the application ends, for which a pick that ends with its model asks.
    std::unique_ptr<platform::StatusItem> item_;
    platform::SingleInstance instance_;
    platform::DesktopSettings settings_;
    DesktopServices services_;
    TintwellAppDelegate appDelegate_;
    /// The status item's panel: made on first use, kept for the life of the process.
    std::optional<PanelContent> content_;
    /// The two frames around the one view; whichever is open has it.
    std::unique_ptr<platform::PanelWindow> panel_;
    std::unique_ptr<platform::ContentWindow> window_;
    /// The window has opened by itself, for want of a tray.
    bool standsIn_ = false;
    std::optional<QRect> lastPlace_;
    std::vector<QPointer<QWidget>> hiddenForPick_;
    /// Waits for the end of a pick that the item's menu began.
    platform::Subscription pick_;
};

} // namespace tintwell
