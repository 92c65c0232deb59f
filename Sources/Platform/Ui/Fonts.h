// The two typefaces of the interface and their line heights.
#pragma once

#include <QFont>

namespace platform {

enum class FontDesign { interface, monospaced };

/// How a piece of text is set. Sizes are in points of the design, which are logical pixels.
struct TextStyle {
    double size = 13;
    QFont::Weight weight = QFont::Normal;
    FontDesign design = FontDesign::interface;
    /// Added after every character.
    double letterSpacing = 0;
    /// 0 takes `lineHeightOf(size)`.
    int lineHeight = 0;

    bool operator==(const TextStyle&) const = default;
};

/// The desktop's interface font, else the first that is there of a list of good ones; or the
/// monospaced face, without ligatures.
[[nodiscard]] QFont fontOf(const TextStyle& style);

/// The fixed height of a line: 1.21 times the size, rounded; 10 and 11 are rounded up.
[[nodiscard]] int lineHeightOf(double size);
[[nodiscard]] int lineHeightOf(const TextStyle& style);

/// Where the baseline lies below the top of a line of this style: the font's own extent is centred
/// in the fixed height.
[[nodiscard]] double baselineOf(const TextStyle& style);

} // namespace platform
