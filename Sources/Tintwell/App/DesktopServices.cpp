#include "DesktopServices.h"

#include "DesktopColorSampler.h"
#include "PaletteGenerator.h"
#include "QtColor.h"

#include <QColor>

#include <utility>

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

} // namespace

class DesktopServices::Sampler final : public ScreenColorSampling {
public:
    Sampler(std::shared_ptr<Screen> screen, platform::Scheduler& scheduler)
        : screen_(std::move(screen))
        , service_(platform::makeColorSamplerFactory(
                       describe, [screen = screen_] { screen->canPick = false; }),
              scheduler)
    {
    }

    [[nodiscard]] bool isBusy() const override { return screen_->isBusy; }

    void sample(Completion completion) override
    {
        *screen_ = { .isBusy = true, .canPick = true };
        service_.sample([screen = screen_, completion = std::move(completion)](auto color) {
            screen->isBusy = false;
            completion(color);
        });
    }

private:
    std::shared_ptr<Screen> screen_;
    ColorSamplerService service_;
};

DesktopServices::DesktopServices()
    : installer_(platform::ColorListRegistry(), platform::PalettePublisher())
    , colorPanel_({ pasteboard_, platform::ColorListRegistry(), inkOn, installedListName })
{
}

ModelServices DesktopServices::forModel()
{
    return { pasteboard_, installer_, scheduler_, platform::currentTime, platform::Uuid::random };
}

std::shared_ptr<ScreenColorSampling> DesktopServices::makeSampler()
{
    return std::make_shared<Sampler>(screen_, scheduler_);
}

} // namespace tintwell
