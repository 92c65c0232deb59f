// A code whose characters roll like the digits of a counter.
#pragma once

#include "Label.h"
#include "Motion.h"

namespace platform {

/// A monospaced label in character cells, each clipped. Where a character changes, the old one goes
/// up and out by a line and the new one comes from below, both fading; each cell starts 18 ms after
/// the one to its left.
class RollingText : public Label {
    Q_OBJECT
public:
    using Label::Label;

    /// With a spring the change is a movement, else it happens at once.
    void rollTo(const QString& text, const std::optional<Spring>& spring);

    [[nodiscard]] bool isMoving() const { return motion_.isRunning(); }

    /// How far the cell at `index` is on its way from the old to the new character, 1 when it does
    /// not move.
    [[nodiscard]] double cellProgress(qsizetype index) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString oldText_;
    Spring spring_;
    double seconds_ = 0;
    Motion motion_;
};

} // namespace platform
