// The desktop application: one process, whose panel waits behind an item in the tray.
#pragma once

#include "DesktopServices.h"
#include "DesktopSettings.h"
#include "PanelPresenter.h"
#include "SingleInstance.h"
#include "TintwellAppDelegate.h"

#include <memory>
#include <string>
#include <vector>

namespace tintwell {

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
    void handle(const platform::ActivationRequest& request);

    std::vector<std::string> arguments_;
    platform::SingleInstance instance_;
    platform::DesktopSettings settings_;
    DesktopServices services_;
    TintwellAppDelegate appDelegate_;
    /// None before the process knows that it is the only one.
    std::unique_ptr<PanelPresenter> panel_;
};

} // namespace tintwell
