// The desktop at the moment at which a pick froze it: its pixels, monitors and colour profiles.
#pragma once

#include "Color.h"
#include "LoupePainter.h"
#include "X11Display.h"

#include <vector>

namespace platform {

class FrozenDesktop {
public:
    /// `picture` shows the whole root window.
    FrozenDesktop(const X11Display& display, QImage picture);

    [[nodiscard]] const QImage& picture() const { return picture_; }

    /// The pixel of the desktop that is nearest to `pixel`.
    [[nodiscard]] QPoint nearest(QPoint pixel) const;
    /// The pixel at `by` from `pixel`; a step off the monitors ends at the edge of the present one.
    [[nodiscard]] QPoint stepped(QPoint pixel, QPoint by) const;
    [[nodiscard]] const LoupeMonitor& monitorAt(QPoint pixel) const;
    /// The colour of a pixel in the space of its monitor.
    [[nodiscard]] Color colorAt(QPoint pixel) const;

private:
    QImage picture_;
    std::vector<LoupeMonitor> monitors_;
};

} // namespace platform
