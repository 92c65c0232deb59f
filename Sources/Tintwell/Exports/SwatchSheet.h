// A palette on one page, to be handed round: where everything stands, and the page as a picture.
#pragma once

#include "GeneratedPalette.h"
#include "Result.h"

#include <string>
#include <variant>
#include <vector>

namespace tintwell {

/// A rectangle with round corners and a thin edge, in points from the page's upper left corner.
struct SheetBox {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    double radius = 0;
    RGBAColor fill;
};

/// One line that begins at `x` and stands on `baseline`.
struct SheetText {
    double x = 0;
    double baseline = 0;
    double size = 0;
    bool isBold = false;
    bool isMonospace = false;
    RGBAColor ink;
    std::string text;
};

/// A page on white, its marks from the lowest to the topmost.
struct SwatchSheet {
    double width = 0;
    double height = 0;
    std::vector<std::variant<SheetBox, SheetText>> marks;
};

/// The edge of every box, so that white and black stand out from pages like them.
inline constexpr RGBAColor sheetEdge { 0.5, 0.5, 0.5, 0.35 };

/// The source, a row for each section, and each theme as a card in its own colours; every colour
/// with its name and hex text.
[[nodiscard]] SwatchSheet swatchSheet(const GeneratedPalette& palette);

/// The page as an SVG document.
[[nodiscard]] std::string svgText(const SwatchSheet& sheet);

/// The page as a PNG picture, two pixels a point.
[[nodiscard]] platform::Result<std::string> pngBytes(const SwatchSheet& sheet);

} // namespace tintwell
