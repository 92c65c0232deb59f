#include "SwatchMotion.h"

#include "Theme.h"

namespace tintwell {

SwatchMotion::SwatchMotion(DraggableColorView& view, std::function<void()> moved)
    : view_(view)
    , moved_(std::move(moved))
{
}

void SwatchMotion::show(
    const NativeColorSwatch& swatch, const std::optional<platform::Spring>& spring)
{
    const auto before = view_.color();
    const auto from = view_.paintedColor();
    swatch.updateNSView(view_);
    if (view_.color() == before)
        return;
    motion_.follow(spring, [this, from](double progress) {
        view_.setPaintedColor(platform::blended(from, view_.color(), progress));
        if (moved_)
            moved_();
    });
}

} // namespace tintwell
