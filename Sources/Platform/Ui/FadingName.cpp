#include "FadingName.h"

#include <QPainter>

#include <algorithm>

namespace platform {

namespace {

constexpr double oldGoneAt = 0.55;
constexpr double newComesAt = 0.20;
constexpr double smallScale = 0.985;

} // namespace

void FadingName::fadeTo(const QString& text, const std::optional<Spring>& spring)
{
    if (text == this->text())
        return;
    motion_.finish();
    oldText_ = this->text();
    setText(text);
    if (!spring.has_value() || !isVisible())
        return;
    const auto duration = springDuration(*spring);
    motion_.run(duration, [this, duration, spring = *spring](double share) {
        elapsedShare_ = share;
        progress_ = springProgress(share * duration, spring);
        update();
    });
}

void FadingName::paintEvent(QPaintEvent* event)
{
    if (!motion_.isRunning()) {
        Label::paintEvent(event);
        return;
    }
    QPainter painter(this);
    const auto oldOpacity = std::clamp(1 - elapsedShare_ / oldGoneAt, 0.0, 1.0);
    paintLine(painter, fitted(oldText_), 0, faded(color(), oldOpacity));
    const auto newOpacity = std::clamp((elapsedShare_ - newComesAt) / (1 - newComesAt), 0.0, 1.0);
    const auto scale = smallScale + (1 - smallScale) * progress_;
    painter.translate(0, baseline());
    painter.scale(scale, scale);
    painter.translate(0, -baseline());
    paintLine(painter, fitted(text()), 0, faded(color(), newOpacity));
}

} // namespace platform
