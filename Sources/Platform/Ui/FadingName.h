// A headline that cross-fades to its next text.
#pragma once

#include "Label.h"
#include "Motion.h"

namespace platform {

/// A label whose old text fades out in the first 55 % of the movement, while the new one fades in
/// from 20 % on and grows from 0.985 to 1 about the left end of its baseline.
class FadingName : public Label {
    Q_OBJECT
public:
    using Label::Label;

    /// With a spring the change is a movement, else it happens at once.
    void fadeTo(const QString& text, const std::optional<Spring>& spring);

    [[nodiscard]] bool isMoving() const { return motion_.isRunning(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString oldText_;
    double elapsedShare_ = 1;
    double progress_ = 1;
    Motion motion_;
};

} // namespace platform
