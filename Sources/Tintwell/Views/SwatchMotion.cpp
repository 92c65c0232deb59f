#include "SwatchMotion.h"

#include "MacColorIntegration.h"
#include "Spring.h"

namespace tintwell {

namespace {

RGBAColor blended(const RGBAColor& from, const RGBAColor& to, double progress)
{
    const auto between = [progress](double a, double b) { return a + (b - a) * progress; };
    return { between(from.red, to.red), between(from.green, to.green), between(from.blue, to.blue),
        between(from.alpha, to.alpha) };
}

} // namespace

SwatchMotion::SwatchMotion(DraggableColorView& swatch, std::function<void()> moved)
    : swatch_(swatch)
    , moved_(std::move(moved))
{
}

void SwatchMotion::paint(const RGBAColor& color)
{
    swatch_.setPaintedColor(toPlatformColor(color));
    if (moved_)
        moved_();
}

void SwatchMotion::moveTo(const RGBAColor& target, const std::optional<platform::Spring>& spring)
{
    motion_.stop();
    const auto from = fromPlatformColor(swatch_.paintedColor()).value_or(target);
    swatch_.setColor(toPlatformColor(target));
    if (!spring)
        return paint(target);
    motion_.run(
        platform::springDuration(*spring),
        [this, from, target, spring = *spring](double seconds) {
            paint(blended(from, target, platform::springProgress(seconds, spring)));
        },
        [this, target] { paint(target); });
}

} // namespace tintwell
