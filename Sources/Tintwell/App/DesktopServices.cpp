#include "DesktopServices.h"

#include "DesktopColorSampler.h"
#include "PaletteGenerator.h"
#include "QtColor.h"

#include <QColor>

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

QColor inkOn(const QColor& fill)
{
    return toQColor(readableInkOn(fromQColor(fill.rgb())));
}

platform::ColorListRegistry userLists()
{
    return platform::ColorListRegistry(platform::ColorListRegistry::defaultFolder());
}

} // namespace

DesktopServices::DesktopServices()
    : installer_(userLists(), platform::PalettePublisher(platform::PalettePublisher::userFolders()))
    , colorPanel_({ pasteboard_, userLists(), inkOn, installedListName })
{
}

ModelServices DesktopServices::forModel()
{
    return { pasteboard_, installer_, scheduler_, platform::currentTime, platform::Uuid::random };
}

std::shared_ptr<ScreenColorSampling> DesktopServices::makeSampler()
{
    return std::make_shared<ColorSamplerService>(
        platform::makeColorSamplerFactory(describe), scheduler_);
}

} // namespace tintwell
