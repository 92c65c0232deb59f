// The services of the desktop that all panels of the process share.
#pragma once

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

private:
    platform::SamplerHooks hooks_;
    platform::QtPasteboard pasteboard_;
    platform::QtScheduler scheduler_;
    MacColorListInstaller installer_;
};

} // namespace tintwell
