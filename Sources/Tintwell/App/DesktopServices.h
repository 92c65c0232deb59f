// The services of the desktop that all panels of the process share.
#pragma once

#include "ColorPanel.h"
#include "MacColorIntegration.h"
#include "QtPasteboard.h"
#include "QtScheduler.h"
#include "SamplerHooks.h"
#include "TintwellModel.h"

#include <memory>

namespace tintwell {

/// Outlives every model that it serves.
class DesktopServices {
public:
    /// `hooks` tell the application when a pick begins and ends.
    explicit DesktopServices(platform::SamplerHooks hooks);

    [[nodiscard]] ModelServices forModel();
    [[nodiscard]] std::shared_ptr<ScreenColorSampling> makeSampler() const;
    /// The process's one "Colors" window.
    [[nodiscard]] platform::ColorPanel& colorPanel() { return *colorPanel_; }

private:
    platform::SamplerHooks hooks_;
    platform::QtPasteboard pasteboard_;
    platform::QtScheduler scheduler_;
    MacColorListInstaller installer_;
    std::unique_ptr<platform::ColorPanel> colorPanel_;
};

} // namespace tintwell
