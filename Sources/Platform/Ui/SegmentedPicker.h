// A row of segments of which exactly one is chosen.
#pragma once

#include "Motion.h"
#include "Tint.h"

#include <QStringList>
#include <QWidget>

#include <vector>

namespace platform {

/// To the keyboard one control: the arrow keys, Home and End choose inside it. To assistive
/// technologies a named group of radio buttons. The label is only spoken, never shown.
class SegmentedPicker : public QWidget, public Tinted {
    Q_OBJECT
public:
    SegmentedPicker(const QString& label, const QStringList& titles);

    [[nodiscard]] int current() const { return current_; }
    /// With a spring the plate slides to the segment, else it is there at once. Does not signal.
    void setCurrent(int index, const std::optional<Spring>& spring = std::nullopt);
    void setTint(const Tint& tint) override;

    /// Where a segment lies inside the picker, for presses from outside.
    [[nodiscard]] QRectF segmentRect(int index) const;
    /// Where the plate of the chosen segment is drawn now.
    [[nodiscard]] QRectF plateRect() const;

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The user chose a segment by mouse, key or an assistive technology; it is current already.
    void picked(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Segment;
    void pick(int index);
    void moveBy(int step);
    [[nodiscard]] int count() const { return static_cast<int>(segments_.size()); }
    [[nodiscard]] double hoverOf(int index) const;
    void paintSeparators(QPainter& painter) const;
    void paintLabel(QPainter& painter, int index) const;

    std::vector<Segment*> segments_;
    int current_ = 0;
    /// The plate's place, in segments from the leading edge.
    double platePosition_ = 0;
    Tint tint_;
    Motion slide_;
};

} // namespace platform
