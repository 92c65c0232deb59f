// The services of the desktop that all panels of the process share.
#pragma once

#include "ColorPanel.h"
#include "MacColorIntegration.h"
#include "QtPasteboard.h"
#include "QtScheduler.h"
#include "TintwellModel.h"

#include <memory>

namespace tintwell {

/// Outlives every model that it serves.
class DesktopServices {
public:
    DesktopServices();

    [[nodiscard]] ModelServices forModel();
    [[nodiscard]] std::shared_ptr<ScreenColorSampling> makeSampler();
    /// The process's one "Colors" window.
    [[nodiscard]] platform::ColorPanel& colorPanel() { return colorPanel_; }

private:
    platform::QtPasteboard pasteboard_;
    platform::QtScheduler scheduler_;
    MacColorListInstaller installer_;
    platform::ColorPanel colorPanel_;
};

} // namespace tintwell
