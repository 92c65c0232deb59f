#include "SwatchMotion.h"

#include "QtColor.h"
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

SwatchMotion::SwatchMotion(
    DraggableColorView& view, const RGBAColor& color, std::function<void()> moved)
    : view_(view)
    , target_(color)
    , painted_(color)
    , moved_(std::move(moved))
{
}

void SwatchMotion::paint(const RGBAColor& color)
{
    painted_ = color;
    view_.setPaintedColor(toQColor(color));
    if (moved_)
        moved_();
}

void SwatchMotion::show(
    const NativeColorSwatch& swatch, const std::optional<platform::Spring>& spring)
{
    swatch.updateNSView(view_);
    if (swatch.color == target_)
        return;
    target_ = swatch.color;
    motion_.stop();
    if (!spring)
        return paint(target_);
    motion_.run(
        platform::springDuration(*spring),
        [this, from = painted_, spring = *spring](double seconds) {
            paint(blended(from, target_, platform::springProgress(seconds, spring)));
        },
        [this] { paint(target_); });
}

} // namespace tintwell
