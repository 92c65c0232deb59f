// The status item's panel and the two windows that it can stand in.
#pragma once

#include "ContentWindow.h"
#include "ModelAndView.h"
#include "PanelWindow.h"

#include <functional>
#include <memory>
#include <optional>

namespace tintwell {

/// Model and view are made on first use and kept for the life of the process; the view moves into
/// whichever of the windows is asked for.
class MainPanel {
public:
    struct WindowEvents {
        /// The user has closed the ordinary window.
        std::function<void()> closed;
        /// Escape was pressed in it.
        std::function<void()> escape;
    };

    MainPanel(DesktopServices& services, WindowEvents events);

    [[nodiscard]] TintwellModel& model();
    /// Stands beside the status item.
    [[nodiscard]] platform::PanelWindow& panel();
    /// A window like any other.
    [[nodiscard]] platform::ContentWindow& window();
    /// The ordinary window while it is open, or none.
    [[nodiscard]] platform::ContentWindow* openWindow() const;
    /// True while it stands beside the status item.
    [[nodiscard]] bool isBesideItem() const;

private:
    [[nodiscard]] ModelAndView& content();

    DesktopServices& services_;
    WindowEvents events_;
    std::optional<ModelAndView> content_;
    // After the content: the views go before their model.
    std::unique_ptr<platform::PanelWindow> panel_;
    std::unique_ptr<platform::ContentWindow> window_;
};

} // namespace tintwell
