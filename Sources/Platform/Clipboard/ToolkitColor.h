// From the desktop's colours to the toolkit's and back.
#pragma once

#include "Pasteboard.h"

#include <QColor>
#include <QString>

namespace platform {

/// The colour in sRGB, each channel one of 256 steps, so that the toolkit sends both bytes of every
/// 16-bit channel alike: receivers read the high one or the low one. Invalid when the colour has no
/// sRGB form.
[[nodiscard]] QColor toQColor(const Color& color);

[[nodiscard]] Color fromQColor(const QColor& color);

/// "#RRGGBB"
[[nodiscard]] QString hexText(const QColor& color);

/// What a copy or a drag of the colour carries.
[[nodiscard]] ColorContent contentOf(const QColor& color);

} // namespace platform
