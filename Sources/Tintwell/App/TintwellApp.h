// The desktop application: one process, whose panel waits behind an item in the tray.
#pragma once

#include "DesktopServices.h"
#include "DesktopSettings.h"
#include "GlobalShortcut.h"
#include "PanelPresenter.h"
#include "Settings.h"
#include "SingleInstance.h"
#include "TintwellAppDelegate.h"

#include <memory>
#include <string>
#include <vector>

namespace tintwell {

/// The switch of a start that nobody sees: at login, by the bus, for a pick. Such a process waits
/// for its tray.
inline constexpr auto backgroundSwitch = "--background";
/// The action that picks a colour from the screen.
inline constexpr auto pickAction = "pick";
inline constexpr auto needsDesktop
    = "Tintwell needs a desktop to appear on; tintwell-cli works without one.";

/// Made after Qt's application object and gone before it; main thread only.
class TintwellApp {
public:
    /// `arguments` are those of the process, the program's own name included.
    explicit TintwellApp(std::vector<std::string> arguments);
    TintwellApp(const TintwellApp&) = delete;
    TintwellApp& operator=(const TintwellApp&) = delete;

    /// Runs until the application is asked to end; returns the process's exit code. A start beside
    /// a running process hands its wish over and returns at once.
    int run();

private:
    void followDesktop();
    /// Does what a later start asks for.
    void handle(
        const platform::ActivationRequest& request, const platform::SingleInstance::Answer& answer);
    void offerShortcut();

    std::vector<std::string> arguments_;
    platform::SingleInstance instance_;
    platform::DesktopSettings desktopSettings_;
    Settings settings_;
    DesktopServices services_;
    TintwellAppDelegate appDelegate_;
    /// None before the process knows that it is the only one.
    std::unique_ptr<PanelPresenter> panel_;
    std::unique_ptr<platform::GlobalShortcut> shortcut_;
};

} // namespace tintwell
