// The short glide with which a view follows the wheel.
#pragma once

#include <QPropertyAnimation>

class QAbstractScrollArea;
class QWheelEvent;

namespace platform {

/// Scrolls a view vertically: by the pixels of a touchpad, and by the notches of a wheel with a
/// short glide.
class WheelGlide {
public:
    /// Belongs to `area`.
    explicit WheelGlide(QAbstractScrollArea& area);

    /// Ignores the event at the end of the way.
    void turn(QWheelEvent& event);
    void to(int value);
    void stop() { animation_.stop(); }

private:
    QAbstractScrollArea& area_;
    QPropertyAnimation animation_;
};

} // namespace platform
