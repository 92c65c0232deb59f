// The neutral colours of the interface, light and dark.
#pragma once

#include <QColor>

namespace platform {

/// How the desktop looks.
enum class Appearance { light, dark };

/// Neutral colours; they never take on the colour that the user works with. Some are translucent
/// and meant to lie on `windowBackground`.
struct Theme {
    Appearance appearance = Appearance::light;
    QColor windowBackground;
    QColor text;
    QColor secondary;
    QColor tertiary;
    QColor quaternaryFill;
    QColor separator;
    /// The hairline around a swatch, 0.75 thick.
    QColor swatchEdge;
    QColor controlFill;
    QColor controlHover;
    QColor controlPressed;
    QColor controlStroke;
    QColor fieldBackground;
    QColor menuBackground;
    QColor menuOutline;
    QColor destructive;
};

/// The colours of an appearance, process-wide.
[[nodiscard]] const Theme& themeOf(Appearance appearance);

/// `top` painted over the opaque `bottom`.
[[nodiscard]] QColor composited(const QColor& top, const QColor& bottom);

/// `color` with its alpha multiplied by `opacity`, 0…1.
[[nodiscard]] QColor faded(const QColor& color, double opacity);

/// The colour at `progress` between `from` (0) and `to` (1), component by component in
/// gamma-encoded sRGB. `progress` may overshoot 0…1; the components are clamped.
[[nodiscard]] QColor blended(const QColor& from, const QColor& to, double progress);

} // namespace platform
