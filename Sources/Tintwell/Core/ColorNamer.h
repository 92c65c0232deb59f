// Short English names for colours, from their perceptual coordinates.
#pragma once

#include "OKLCH.h"

#include <string>

namespace tintwell {

/// Names a colour by its hue family, such as "Violet", with a modifier where lightness or chroma
/// stand out ("Deep Azure"); colours without visible chroma by their lightness alone ("Near
/// White").
struct ColorNamer {
    [[nodiscard]] std::string name(const OKLCH& color) const;
};

} // namespace tintwell
