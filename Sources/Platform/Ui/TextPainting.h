// How text reaches the screen.
#pragma once

#include "Fonts.h"

#include <QPointF>
#include <QString>
#include <QStringList>

class QColor;
class QPainter;
class QRectF;

namespace platform {

/// Draws one line with its baseline at `position`, moved to a whole device pixel. On a scaled
/// screen the glyphs are made at their real size: made at the logical size and enlarged, as the
/// toolkit does on its own, their strokes come out too heavy. `font` needs a pixel size.
void paintText(QPainter& painter, const QPointF& position, const QString& text, const QFont& font,
    const QColor& color);

/// The lines of a text that may be `width` wide.
[[nodiscard]] QStringList wrapped(const QString& text, const QFont& font, double width);

/// One line from the left edge of `box`, in the middle of its height; cut with an ellipsis where it
/// is too long.
void paintLine(QPainter& painter, const QRectF& box, const QString& text, const TextStyle& style,
    const QColor& color);

} // namespace platform
