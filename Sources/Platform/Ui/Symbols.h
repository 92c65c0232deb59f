// The symbols of the interface, drawn as paths in any colour and size.
#pragma once

#include <QPainterPath>
#include <QRectF>

class QColor;
class QPainter;

namespace platform {

enum class Symbol {
    eyedropper,
    eyedropperHalf,
    copy,
    checkmark,
    seal,
    palette,
    paletteFill,
    tray,
    power,
    ellipsis,
    stackSlash,
    trash,
    close,
    minimize
};

/// The thickness of lines on the grid of 24 that every symbol is drawn on.
inline constexpr double symbolStroke = 1.75;

/// The area that a symbol covers on the grid of 24, ready to be filled in one go, so that a
/// translucent colour stays even. `stroke` is the thickness of its lines on that grid.
[[nodiscard]] const QPainterPath& symbolOutline(Symbol symbol, double stroke = symbolStroke);

/// Fills the symbol into the largest square in the middle of `box`.
void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& box, const QColor& color,
    double stroke = symbolStroke);

} // namespace platform
