// Draws the loupe of a screen pick: magnified pixels in a ring, and a label that names the colour.
#pragma once

#include "Color.h"
#include "Shadow.h"
#include "Theme.h"

#include <QImage>
#include <QPoint>
#include <QRect>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace platform {

/// The two lines of the label.
struct ColorDescription {
    std::string hex;
    std::string name;
};

/// Describes a picked colour, which may be in a monitor's own space.
using ColorDescriber = std::function<ColorDescription(const Color&)>;

/// The monitor on which the loupe stands: its device pixels, how many make one point, and their
/// own colour space, where it has one.
struct LoupeMonitor {
    QRect geometry;
    double scale = 1;
    std::shared_ptr<const ColorSpace> space {};
};

/// A finished picture and the device pixel of the desktop on which its corner belongs.
struct LoupePicture {
    QPoint topLeft;
    QImage image;
};

/// Draws in device pixels: every magnified pixel is a whole number of them at any scale.
class LoupePainter {
public:
    /// Only the label follows the theme.
    explicit LoupePainter(const Theme& theme);

    /// The loupe over `pixel` of the frozen desktop, its shadow blended with what is there. The
    /// centre cell lies on the pixel; the label stays inside the monitor, below the ring or, where
    /// there is no room, above it.
    [[nodiscard]] LoupePicture paint(const QImage& frozen, QPoint pixel,
        const LoupeMonitor& monitor, const ColorDescription& description);

    /// Device pixels from one magnified pixel to the next.
    [[nodiscard]] static int cellSize(double scale);

private:
    void makeShadows(double scale);

    const Theme& theme_;
    QImage ringShadow_;
    std::optional<Shadow> labelShadow_;
    double shadowScale_ = 0;
};

} // namespace platform
