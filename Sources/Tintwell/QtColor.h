// From the application's colours to the toolkit's and back.
#pragma once

#include "RGBAColor.h"

#include <algorithm>
#include <cmath>
#include <QColor>

namespace tintwell {

/// The sRGB colour with its alpha in 8 bits a channel, rounded as the hex text rounds, so that a
/// pixel on the screen is what the text says. What is not a number counts as 0.
[[nodiscard]] inline QColor toQColor(const RGBAColor& color)
{
    const auto channel = [](double value) {
        return static_cast<int>(std::lround((value >= 0 ? std::min(value, 1.0) : 0.0) * 255));
    };
    return { channel(color.red), channel(color.green), channel(color.blue), channel(color.alpha) };
}

[[nodiscard]] inline RGBAColor fromQColor(const QColor& color)
{
    return { color.red() / 255.0, color.green() / 255.0, color.blue() / 255.0,
        color.alpha() / 255.0 };
}

} // namespace tintwell
