// The desktop at the moment at which a pick froze it: its pixels, monitors and colour profiles.
#pragma once

#include "Color.h"
#include "LoupePainter.h"
#include "X11Display.h"

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

namespace platform {

class FrozenDesktop {
public:
    /// `picture` shows the whole root window.
    FrozenDesktop(const X11Display& display, QImage picture);

    [[nodiscard]] const QImage& picture() const { return picture_; }

    /// The pixel of the desktop that is nearest to `pixel`.
    [[nodiscard]] QPoint nearest(QPoint pixel) const;
    /// The pixel at `by` from `pixel`; a step that no monitor shows ends at the edge of its own.
    [[nodiscard]] QPoint stepped(QPoint pixel, QPoint by) const;
    [[nodiscard]] const LoupeMonitor& monitorAt(QPoint pixel) const;
    /// The colour of a pixel in the space of its monitor's profile, where it has one.
    [[nodiscard]] Color colorAt(QPoint pixel);

private:
    [[nodiscard]] std::size_t numberAt(QPoint pixel) const;
    [[nodiscard]] std::shared_ptr<const ColorSpace> spaceOf(std::size_t monitor);

    X11Display display_;
    QImage picture_;
    /// In the order in which their profiles are numbered.
    std::vector<LoupeMonitor> monitors_;
    std::map<std::size_t, std::shared_ptr<const ColorSpace>> spaces_;
};

} // namespace platform
