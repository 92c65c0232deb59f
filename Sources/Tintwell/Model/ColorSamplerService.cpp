// The sampler service: one platform sampler a pick, one answer a pick.
#include "MacColorIntegration.h"

#include <utility>

namespace tintwell {

namespace {

/// A completion that is waiting; empty once it was called.
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

    /// Knows the service only weakly: a pick that is pending does not keep it alive.
    [[nodiscard]] static platform::ColorSampler::SelectionHandler handlerFor(
        const Waiting& waiting, const std::weak_ptr<State>& weakState);
};

platform::ColorSampler::SelectionHandler ColorSamplerService::State::handlerFor(
    const Waiting& waiting, const std::weak_ptr<State>& weakState)
{
    return [held = waiting, weakState](const std::optional<platform::Color>& color) mutable {
        // Releasing the sampler may destroy this very function, so nothing captured is used after.
        const auto mine = std::move(held);
        const auto picked = color ? fromPlatformColor(*color) : std::nullopt;
        const auto state = weakState.lock();
        if (state && state->waiting == mine)
            state->activeSampler.reset();
        answer(mine, picked);
    };
}

ColorSamplerService::ColorSamplerService(platform::ColorSamplerFactory makeSampler)
    : makeSampler_(std::move(makeSampler))
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
    state_->activeSampler = makeSampler_();
    if (state_->activeSampler)
        state_->activeSampler->show(State::handlerFor(waiting, state_));
    else
        answer(waiting, std::nullopt);
    answer(replaced, std::nullopt);
}

bool ColorSamplerService::hasActiveSampler() const
{
    return state_->activeSampler != nullptr;
}

} // namespace tintwell
