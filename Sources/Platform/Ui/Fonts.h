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

/// The fixed height of a line: 24 -> 29, 15 -> 18, 14 -> 17, 13 -> 16, 12 -> 15, 11 -> 14,
/// 10 -> 13, 9 -> 11; other sizes 1.21 times the size, rounded.
[[nodiscard]] int lineHeightOf(double size);
[[nodiscard]] int lineHeightOf(const TextStyle& style);

/// Where the baseline lies below the top of a line of this style: the font's own extent is centred
/// in the fixed height.
[[nodiscard]] double baselineOf(const TextStyle& style);

/// Replaces the interface font for the process, for instance by the one that the desktop's settings
/// name; an empty family returns to the rule above. Widgets that exist are not told.
void setInterfaceFamily(const QString& family);

} // namespace platform
