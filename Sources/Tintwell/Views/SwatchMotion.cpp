#include "SwatchMotion.h"

#include "QtColor.h"

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
    motion_.follow(spring, [this, from = painted_](double progress) {
        paint(progress == 1 ? target_ : blended(from, target_, progress));
    });
}

} // namespace tintwell
