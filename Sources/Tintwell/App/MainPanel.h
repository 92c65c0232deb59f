// The status item's panel and the two windows that it can stand in.
#pragma once

#include "ContentWindow.h"
#include "ModelAndView.h"
#include "Observers.h"
#include "PanelWindow.h"

#include <functional>
#include <memory>
#include <optional>

namespace tintwell {

/// Model and view are made on first use and kept for the life of the process; the view moves into
/// whichever of the windows is asked for.
class MainPanel {
public:
    struct Events {
        /// Asks whether the panel stays when another window takes the focus.
        std::function<bool()> keepsOpen;
        /// A pick of the panel's own model is over; the application's windows are back.
        std::function<void()> pickEnded;
        /// The user has closed the ordinary window.
        std::function<void()> closed;
        /// Escape was pressed in it.
        std::function<void()> escape;
    };

    MainPanel(DesktopServices& services, Events events);

    [[nodiscard]] TintwellModel& model();
    /// Stands beside the status item.
    [[nodiscard]] platform::PanelWindow& panel();
    /// A window like any other.
    [[nodiscard]] platform::ContentWindow& window();
    /// The ordinary window while it is open, or none.
    [[nodiscard]] platform::ContentWindow* openWindow() const;

private:
    [[nodiscard]] ModelAndView& content();
    void followPicks();

    DesktopServices& services_;
    Events events_;
    std::optional<ModelAndView> content_;
    platform::Subscription picks_;
    bool wasSampling_ = false;
    // After the content: the views go before their model.
    std::unique_ptr<platform::PanelWindow> panel_;
    std::unique_ptr<platform::ContentWindow> window_;
};

} // namespace tintwell
