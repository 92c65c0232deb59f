#include "MacColorIntegration.h"

#include <chrono>
#include <utility>

namespace tintwell {

namespace {

/// The completion that waits for a pick; empty once it was called.
using Waiting = std::shared_ptr<ScreenColorSampling::Completion>;

void answer(const Waiting& waiting, const std::optional<RGBAColor>& color)
{
    if (!waiting)
        return;
    if (const auto completion = std::exchange(*waiting, nullptr))
        completion(color);
}

} // namespace

struct ColorSamplerService::State {
    /// The sampler that shows its loupe now; nothing else keeps it alive.
    std::unique_ptr<platform::ColorSampler> activeSampler;
    Waiting waiting;
};

ColorSamplerService::ColorSamplerService(
    platform::ColorSamplerFactory makeSampler, platform::Scheduler& scheduler)
    : makeSampler_(std::move(makeSampler))
    , scheduler_(scheduler)
    , state_(std::make_shared<State>())
{
}

ColorSamplerService::~ColorSamplerService()
{
    state_->activeSampler.reset();
    answer(state_->waiting, std::nullopt);
}

void ColorSamplerService::sample(Completion completion)
{
    const auto waiting = std::make_shared<Completion>(std::move(completion));
    const auto replaced = std::exchange(state_->waiting, waiting);
    // Knows the service only weakly: a pick that is pending does not keep it alive.
    const auto picked = [waiting, &scheduler = scheduler_, state = std::weak_ptr(state_)](
                            const std::optional<platform::Color>& color) {
        scheduler.after(std::chrono::milliseconds(0), [=] {
            if (const auto alive = state.lock(); alive && alive->waiting == waiting)
                alive->activeSampler.reset();
            answer(waiting, color ? fromPlatformColor(*color) : std::nullopt);
        });
    };
    state_->activeSampler = makeSampler_();
    state_->activeSampler->show(picked);
    scheduler_.after(std::chrono::milliseconds(0), [replaced] { answer(replaced, std::nullopt); });
}

bool ColorSamplerService::hasActiveSampler() const
{
    return state_->activeSampler != nullptr;
}

} // namespace tintwell
