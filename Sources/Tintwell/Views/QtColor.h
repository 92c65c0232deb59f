// From the application's colours to the toolkit's and back.
#pragma once

#include "MacColorIntegration.h"
#include "ToolkitColor.h"

#include <QColor>

namespace tintwell {

/// The sRGB colour with its alpha in 8 bits a channel, rounded as the hex text rounds, so that a
/// pixel on the screen is what the text says.
[[nodiscard]] inline QColor toQColor(const RGBAColor& color)
{
    return platform::toQColor(toPlatformColor(color));
}

[[nodiscard]] inline RGBAColor fromQColor(const QColor& color)
{
    return { color.red() / 255.0, color.green() / 255.0, color.blue() / 255.0,
        color.alpha() / 255.0 };
}

} // namespace tintwell
