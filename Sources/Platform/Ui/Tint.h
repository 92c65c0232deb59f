// The accent of a panel: the colour that the user works with, and what follows from it.
#pragma once

#include <QColor>

class QWidget;

namespace platform {

struct Theme;

/// The accent and all colours that depend on it, which the application works out.
struct Tint {
    QColor fill { 0x6E, 0x56, 0xCF };
    /// Text and symbols on `fill`.
    QColor ink { 0xFB, 0xFB, 0xFC };
    /// Borderless text on the window background.
    QColor text { 0x6E, 0x56, 0xCF };
    QColor focusRing { 0x6E, 0x56, 0xCF };
    /// Laid over `fill` at 0.10 under the pointer and 0.20 while pressed.
    QColor overlay { 0x09, 0x09, 0x0A };
    /// `fill` hardly differs from the window background, so shapes get a line of `ink` at 0.18.
    bool stroked = false;

    bool operator==(const Tint&) const = default;
};

/// The tint at `progress` between `from` (0) and `to` (1), colour by colour.
[[nodiscard]] Tint blended(const Tint& from, const Tint& to, double progress);

/// The line inside a shape filled with the tint; transparent when it needs none.
[[nodiscard]] QColor edgeOf(const Tint& tint);

/// For what does not know the colour that the user works with: text on a quiet plate.
[[nodiscard]] Tint neutralTint(const Theme& theme);

/// Implemented by widgets that show the tint.
class Tinted {
public:
    virtual ~Tinted() = default;
    virtual void setTint(const Tint& tint) = 0;
};

/// Hands the tint to `root` and to every widget below it that shows it.
void applyTint(QWidget& root, const Tint& tint);

} // namespace platform
