// The end of launching, and the preview window.
#pragma once

#include "ContentWindow.h"
#include "ModelAndView.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tintwell {

/// Opens "Tintwell Preview" beside the status item: an ordinary window with the panel's content and
/// a model of its own.
class TintwellAppDelegate {
public:
    /// The switch that opens the preview window; nothing but these very characters.
    static constexpr auto previewSwitch = "--preview-window";

    [[nodiscard]] static bool asksForPreview(const std::vector<std::string>& arguments);

    /// `windowClosed` is called after the user has closed the preview window.
    TintwellAppDelegate(DesktopServices& services, std::function<void()> windowClosed);
    ~TintwellAppDelegate();

    /// Once, when the event loop is about to start: makes the process an accessory that lives
    /// without windows, and opens the preview window if an argument asks for it.
    void applicationDidFinishLaunching(const std::vector<std::string>& arguments);

    /// Brings the preview window to the front; makes it the first time. Closed, it only hides.
    void showPreviewWindow();

private:
    struct WindowController;

    DesktopServices& services_;
    std::function<void()> windowClosed_;
    std::unique_ptr<WindowController> previewWindowController_;
};

} // namespace tintwell
