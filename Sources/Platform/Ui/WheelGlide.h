// The short glide with which a view follows the wheel.
#pragma once

#include "Motion.h"

class QAbstractScrollArea;
class QWheelEvent;

namespace platform {

/// Scrolls a view vertically: by the pixels of a touchpad, and by the notches of a wheel with a
/// short glide.
class WheelGlide {
public:
    /// Belongs to `area`.
    explicit WheelGlide(QAbstractScrollArea& area)
        : area_(area)
    {
    }

    /// Ignores the event at the end of the way.
    void turn(QWheelEvent& event);
    void to(int value);
    void stop() { motion_.stop(); }

private:
    QAbstractScrollArea& area_;
    int end_ = 0;
    Motion motion_;
};

} // namespace platform
