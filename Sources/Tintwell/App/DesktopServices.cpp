#include "DesktopServices.h"

#include "DesktopColorSampler.h"
#include "PaletteGenerator.h"
#include "QtColorPanel.h"

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
    const auto ink = readableInkOn({ fill.redF(), fill.greenF(), fill.blueF(), 1 });
    return QColor::fromRgbF(
        static_cast<float>(ink.red), static_cast<float>(ink.green), static_cast<float>(ink.blue));
}

platform::ColorListRegistry userLists()
{
    return platform::ColorListRegistry(platform::ColorListRegistry::defaultFolder());
}

} // namespace

DesktopServices::DesktopServices()
    : installer_(userLists(), platform::PalettePublisher(platform::PalettePublisher::userFolders()))
    , colorPanel_(platform::makeColorPanel({ pasteboard_, userLists(), inkOn, installedListName }))
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
