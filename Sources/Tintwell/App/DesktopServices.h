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
    /// Of all these samplers one picks at a time.
    [[nodiscard]] std::shared_ptr<ScreenColorSampling> makeSampler();
    /// False after a pick that the desktop has no means for.
    [[nodiscard]] bool canPick() const { return screen_->canPick; }
    /// The process's one "Colors" window.
    [[nodiscard]] platform::ColorPanel& colorPanel() { return colorPanel_; }

private:
    /// What the samplers of the process share.
    struct Screen {
        bool isBusy = false;
        bool canPick = true;
    };
    class Sampler;

    std::shared_ptr<Screen> screen_ = std::make_shared<Screen>();
    platform::QtPasteboard pasteboard_;
    platform::QtScheduler scheduler_;
    MacColorListInstaller installer_;
    platform::ColorPanel colorPanel_;
};

} // namespace tintwell
