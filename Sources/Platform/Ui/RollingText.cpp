#include "RollingText.h"

#include "TextPainting.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace platform {

namespace {

constexpr double cellDelay = 0.018;

QString characterAt(const QString& text, qsizetype index)
{
    return index < text.size() ? QString(text[index]) : QString();
}

} // namespace

void RollingText::rollTo(const QString& text, const std::optional<Spring>& spring)
{
    if (text == this->text())
        return;
    motion_.stop();
    oldText_ = this->text();
    setText(text);
    if (!spring.has_value() || !isVisible())
        return;
    spring_ = *spring;
    const auto cells = std::max(oldText_.size(), text.size());
    const auto duration = springDuration(spring_)
        + cellDelay * static_cast<double>(std::max<qsizetype>(cells, 1) - 1);
    motion_.run(duration, [this, duration](double share) {
        seconds_ = share * duration;
        update();
    });
}

double RollingText::cellProgress(qsizetype index) const
{
    if (!motion_.isRunning() || characterAt(oldText_, index) == characterAt(text(), index))
        return 1;
    return springProgress(seconds_ - cellDelay * static_cast<double>(index), spring_);
}

void RollingText::paintEvent(QPaintEvent* event)
{
    if (!motion_.isRunning()) {
        Label::paintEvent(event);
        return;
    }
    QPainter painter(this);
    const double lineHeight = height();
    const auto color = this->color();
    const auto cellWidth = QFontMetricsF(textFont()).horizontalAdvance(QLatin1Char('0'));
    const auto paint = [&](const QString& character, double left, double rise, double opacity) {
        paintText(painter, { left, baseline() - rise }, character, textFont(),
            faded(color, std::clamp(opacity, 0.0, 1.0)));
    };
    for (qsizetype i = 0; i < std::max(oldText_.size(), text().size()); ++i) {
        const auto left = cellWidth * static_cast<double>(i);
        const auto progress = cellProgress(i);
        painter.setClipRect(QRectF(left, 0, cellWidth, lineHeight));
        paint(characterAt(text(), i), left, (progress - 1) * lineHeight, progress);
        if (progress != 1)
            paint(characterAt(oldText_, i), left, progress * lineHeight, 1 - progress);
    }
}

} // namespace platform
