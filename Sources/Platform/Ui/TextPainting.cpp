#include "TextPainting.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace platform {

namespace {

/// The font at `scale` times its size; pixel sizes are whole numbers, point sizes are not.
QFont enlarged(const QFont& font, double scale, const QPaintDevice& device)
{
    constexpr double pointsPerInch = 72;
    auto result = font;
    result.setPointSizeF(font.pixelSize() * scale * pointsPerInch / device.logicalDpiY());
    if (font.letterSpacing() != 0)
        result.setLetterSpacing(QFont::AbsoluteSpacing, font.letterSpacing() * scale);
    return result;
}

} // namespace

void paintText(QPainter& painter, const QPointF& position, const QString& text, const QFont& font,
    const QColor& color)
{
    const auto toDevice = painter.deviceTransform();
    auto at = position;
    if (toDevice.type() <= QTransform::TxScale) {
        auto device = toDevice.map(position);
        device.setY(std::round(device.y()));
        at = toDevice.inverted().map(device);
    }
    painter.setPen(color);
    // By the text, not by the interface: the end of a line, where it is cut, is on the left side of
    // a text that runs to the left.
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    // The engine's device is what is painted on in the end, also when a widget draws elsewhere.
    const auto scale = painter.paintEngine()->paintDevice()->devicePixelRatioF();
    if (scale == 1) {
        painter.setFont(font);
        painter.drawText(at, text);
        return;
    }
    painter.setFont(enlarged(font, scale, *painter.device()));
    painter.scale(1 / scale, 1 / scale);
    painter.drawText(at * scale, text);
    painter.scale(scale, scale);
}

QStringList wrapped(const QString& text, const QFont& font, double width)
{
    QStringList lines;
    QTextLayout layout(text, font);
    layout.beginLayout();
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines += text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

void paintLine(QPainter& painter, const QRectF& box, const QString& text, const TextStyle& style,
    const QColor& color)
{
    const auto font = fontOf(style);
    const auto top = box.center().y() - lineHeightOf(style) / 2.0;
    paintText(painter, { box.left(), top + baselineOf(style) },
        QFontMetricsF(font).elidedText(text, Qt::ElideRight, box.width()), font, color);
}

} // namespace platform
