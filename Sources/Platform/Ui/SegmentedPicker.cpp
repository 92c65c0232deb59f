#include "SegmentedPicker.h"

#include "Accessibility.h"
#include "FocusRing.h"
#include "Metrics.h"
#include "Shapes.h"
#include "TextPainting.h"
#include "ThemeSource.h"

#include <QAbstractButton>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

TextStyle labelStyle(bool selected)
{
    return { .size = 13, .weight = selected ? QFont::DemiBold : QFont::Medium };
}

} // namespace

/// The part that takes the pointer and the focus; the picker paints it.
class SegmentedPicker::Segment : public QAbstractButton {
public:
    Segment(SegmentedPicker& picker, int index, const QString& title)
        : QAbstractButton(&picker)
        , picker_(picker)
        , hover_([&picker] { picker.update(); })
        , ring_(new FocusRing(*this, Metrics::segmentRadius))
    {
        setText(title);
        setCheckable(true);
        setAutoExclusive(true);
        ring_->setFramed(picker, Metrics::pickerRadius);
        // Assistive technologies toggle instead of clicking.
        QObject::connect(this, &QAbstractButton::toggled, &picker, [&picker, index](bool on) {
            if (on)
                picker.pick(index);
        });
    }

    [[nodiscard]] double hover() const { return hover_.value(); }
    [[nodiscard]] FocusRing& ring() const { return *ring_; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override { }
    void enterEvent(QEnterEvent* event) override
    {
        hover_.moveTo(1, Metrics::hoverIn);
        QAbstractButton::enterEvent(event);
    }
    void leaveEvent(QEvent* event) override
    {
        hover_.moveTo(0, Metrics::hoverOut);
        QAbstractButton::leaveEvent(event);
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        const auto forward = layoutDirection() == Qt::LeftToRight ? 1 : -1;
        switch (event->key()) {
        case Qt::Key_Left:
            return picker_.moveBy(-forward);
        case Qt::Key_Right:
            return picker_.moveBy(forward);
        case Qt::Key_Up:
            return picker_.moveBy(-1);
        case Qt::Key_Down:
            return picker_.moveBy(1);
        case Qt::Key_Home:
            return picker_.moveBy(-picker_.count());
        case Qt::Key_End:
            return picker_.moveBy(picker_.count());
        default:
            QAbstractButton::keyPressEvent(event);
        }
    }

private:
    SegmentedPicker& picker_;
    Fade hover_;
    FocusRing* ring_;
};

SegmentedPicker::SegmentedPicker(const QString& label, const QStringList& titles)
{
    setAccessibleRole(*this, QAccessible::Grouping);
    setAccessibleName(label);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (int i = 0; i < titles.size(); ++i)
        segments_.push_back(new Segment(*this, i, titles[i]));
    // Its segments take the focus; this makes it a stop in a tab order.
    setFocusPolicy(Qt::StrongFocus);
    current_ = -1;
    setCurrent(0);
    setTint(tint_);
}

void SegmentedPicker::setCurrent(int index, const std::optional<Spring>& spring)
{
    if (index == current_ || index < 0 || index >= count())
        return;
    // Also where the window is not active, as after a pick.
    const auto hadFocus
        = current_ >= 0 && window()->focusWidget() == segments_[static_cast<std::size_t>(current_)];
    current_ = index;
    for (int i = 0; i < count(); ++i) {
        // Only the chosen segment is a stop of the Tab key.
        auto* segment = segments_[static_cast<std::size_t>(i)];
        segment->setChecked(i == index);
        segment->setFocusPolicy(i == index ? Qt::StrongFocus : Qt::ClickFocus);
    }
    setFocusProxy(segments_[static_cast<std::size_t>(index)]);
    if (hadFocus)
        segments_[static_cast<std::size_t>(index)]->setFocus(Qt::OtherFocusReason);
    const auto from = platePosition_;
    slide_.follow(isVisible() ? spring : std::nullopt, [this, from](double progress) {
        platePosition_ = from + (current_ - from) * progress;
        update();
    });
}

void SegmentedPicker::setTint(const Tint& tint)
{
    tint_ = tint;
    for (const auto* segment : segments_)
        segment->ring().setColor(tint.focusRing);
    update();
}

QRectF SegmentedPicker::segmentRect(int index) const
{
    const auto inner = QRectF(rect()).marginsRemoved(QMarginsF(
        Metrics::pickerInset, Metrics::pickerInset, Metrics::pickerInset, Metrics::pickerInset));
    const auto width = inner.width() / std::max(count(), 1);
    const auto place = layoutDirection() == Qt::LeftToRight ? index : count() - 1 - index;
    return { inner.left() + width * place, inner.top(), width, inner.height() };
}

QRectF SegmentedPicker::plateRect() const
{
    const auto first = segmentRect(0);
    const auto last = segmentRect(count() - 1);
    const auto share = platePosition_ / std::max(count() - 1, 1);
    return first.translated((last.left() - first.left()) * share, 0);
}

QSize SegmentedPicker::sizeHint() const
{
    constexpr int segmentWidth = 136;
    return { segmentWidth * count() + 2 * Metrics::pickerInset, Metrics::pickerHeight };
}

void SegmentedPicker::paintEvent(QPaintEvent* /*event*/)
{
    const auto& theme = currentTheme();
    QPainter painter(this);
    // Opaque: a translucent grey is rounded twice and comes out a shade off.
    const auto track = composited(theme.quaternaryFill, theme.windowBackground);
    paintPlate(painter, rect(), Metrics::pickerRadius, track);
    paintSeparators(painter);
    for (int i = 0; i < count(); ++i) {
        const auto fill = faded(theme.controlFill, hoverOf(i));
        paintPlate(painter, segmentRect(i), Metrics::segmentRadius, fill);
    }
    paintPlate(painter, plateRect(), Metrics::segmentRadius, tint_.fill, edgeOf(tint_));
    for (int i = 0; i < count(); ++i)
        paintLabel(painter, i);
}

void SegmentedPicker::resizeEvent(QResizeEvent* /*event*/)
{
    for (int i = 0; i < count(); ++i) {
        const auto area = segmentRect(i);
        const auto left = static_cast<int>(std::lround(area.left()));
        const auto right = static_cast<int>(std::lround(area.right()));
        segments_[static_cast<std::size_t>(i)]->setGeometry(left, 0, right - left, height());
    }
}

void SegmentedPicker::pick(int index)
{
    if (index == current_)
        return;
    setCurrent(index);
    Q_EMIT picked(index);
}

void SegmentedPicker::moveBy(int step)
{
    pick(std::clamp(current_ + step, 0, count() - 1));
}

double SegmentedPicker::hoverOf(int index) const
{
    return index == current_ ? 0 : segments_[static_cast<std::size_t>(index)]->hover();
}

void SegmentedPicker::paintSeparators(QPainter& painter) const
{
    const auto plate = plateRect();
    for (int i = 1; i < count(); ++i) {
        const auto x = std::max(segmentRect(i).left(), segmentRect(i - 1).left());
        const auto nearPlate = x > plate.left() - 1 && x < plate.right() + 1;
        const auto opacity = nearPlate ? 0 : 1 - std::max(hoverOf(i - 1), hoverOf(i));
        const QRectF line(x - Metrics::separatorThickness / 2,
            (height() - Metrics::segmentSeparatorHeight) / 2, Metrics::separatorThickness,
            Metrics::segmentSeparatorHeight);
        if (opacity > 0)
            fillSharp(painter, line, faded(currentTheme().separator, opacity));
    }
}

void SegmentedPicker::paintLabel(QPainter& painter, int index) const
{
    const auto& theme = currentTheme();
    const auto area = segmentRect(index);
    const auto style = labelStyle(index == current_);
    const auto text = segments_[static_cast<std::size_t>(index)]->text();
    const auto resting = blended(theme.secondary, theme.text, hoverOf(index));
    const auto covered = (plateRect() & area).width() / area.width();
    const auto width = QFontMetricsF(fontOf(style)).horizontalAdvance(text);
    paintLine(painter, area.translated((area.width() - width) / 2, 0), text, style,
        blended(resting, tint_.ink, covered));
}

} // namespace platform
