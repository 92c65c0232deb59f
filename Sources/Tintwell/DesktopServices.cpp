// The services of the desktop that all panels of the process share.
#include "DesktopServices.h"

#include "DesktopColorSampler.h"
#include "PaletteGenerator.h"

#include <chrono>

namespace tintwell {

namespace {

/// The loupe's label: hex text and name of the pixel under the pointer.
platform::ColorDescription describe(const platform::Color& color)
{
    const auto converted = fromPlatformColor(color);
    if (!converted)
        return {};
    return { converted->hex(), ColorNamer().name(OKLCH(*converted)) };
}

} // namespace

DesktopServices::DesktopServices(platform::SamplerHooks hooks)
    : hooks_(std::move(hooks))
    , installer_(platform::ColorListRegistry(platform::ColorListRegistry::defaultFolder()),
          platform::PalettePublisher(platform::PalettePublisher::userFolders()))
{
    hooks_.describe = describe;
}

ModelServices DesktopServices::forModel()
{
    const auto now = [] {
        return std::chrono::time_point_cast<platform::Timestamp::duration>(
            std::chrono::system_clock::now());
    };
    return { pasteboard_, installer_, scheduler_, now, platform::Uuid::random };
}

std::shared_ptr<ScreenColorSampling> DesktopServices::makeSampler() const
{
    return std::make_shared<ColorSamplerService>(platform::makeColorSamplerFactory(hooks_));
}

} // namespace tintwell
