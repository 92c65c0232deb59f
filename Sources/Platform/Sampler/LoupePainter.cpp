#include "LoupePainter.h"

#include "Fonts.h"
#include "Shapes.h"

#include <QFontMetricsF>
#include <QPainter>

#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace platform {

namespace {

// Lengths are in points; radii are measured from the centre of the ring.
constexpr int cells = 11;
constexpr double cellPoints = 12;
constexpr double lensRadius = 66;
constexpr double bandRadius = 75.5;
constexpr double labelDistance = 88;
constexpr double labelHeight = 47;
constexpr double labelHeightWithoutName = 32;
constexpr double labelPadding = 14;
constexpr double labelRadius = 10;
constexpr double labelOutline = 0.75;
constexpr double hexBaseline = 20.75;
constexpr double nameBaseline = 35.5;
constexpr double hexSize = 13;
constexpr double nameSize = 11;
// As far as any shadow can be seen.
constexpr double fullReach = 140;

struct Disc {
    double radius;
    QColor color; // invalid: the picked colour
};

const std::array ringBands {
    Disc { 77.5, QColor(0, 0, 0, 46) },
    Disc { 77, Qt::white },
    Disc { bandRadius, QColor() },
    Disc { 67.5, Qt::white },
};

struct Drop {
    double y;
    double sigma;
    double opacity;
};

constexpr std::array ringShadows { Drop { 8, 16, 0.28 }, Drop { 1, 1.5, 0.22 } };
constexpr Drop labelDrop { 6, 9, 0.22 };

/// How much of a Gaussian of deviation `sigma` lies below `x`.
double gaussianBelow(double x, double sigma)
{
    return 0.5 * std::erfc(-x / (sigma * std::numbers::sqrt2));
}

/// The magnified pixels, with a line between each two.
QImage magnified(const QImage& frozen, QPoint pixel, double scale)
{
    const int cell = LoupePainter::cellSize(scale);
    QImage lens(cells * cell, cells * cell, QImage::Format_RGB32);
    lens.fill(Qt::black);
    QPainter painter(&lens);
    for (int row = 0; row < cells; ++row) {
        for (int column = 0; column < cells; ++column) {
            const QPoint at = pixel + QPoint(column - cells / 2, row - cells / 2);
            if (frozen.rect().contains(at))
                painter.fillRect(column * cell, row * cell, cell, cell, frozen.pixelColor(at));
        }
    }
    // Half a point of line; where that is less than a device pixel, a fainter whole one.
    const double wanted = 0.5 * scale;
    const int width = std::max(1, static_cast<int>(std::lround(wanted)));
    QColor line(128, 128, 128);
    line.setAlphaF(static_cast<float>(0.22 * std::min(1.0, wanted / width)));
    for (int index = 1; index < cells; ++index) {
        painter.fillRect(index * cell, 0, width, lens.height(), line);
        painter.fillRect(0, index * cell, lens.width(), width, line);
    }
    return lens;
}

void paintRing(
    QPainter& painter, QPointF centre, const QImage& lens, const QColor& picked, double scale)
{
    painter.setPen(Qt::NoPen);
    const auto disc
        = [&](double radius) { painter.drawEllipse(centre, radius * scale, radius * scale); };
    for (const auto& each : ringBands) {
        painter.setBrush(each.color.isValid() ? each.color : picked);
        disc(each.radius);
    }
    QBrush pixels(lens);
    pixels.setTransform(QTransform::fromTranslate(
        centre.x() - lens.width() / 2.0, centre.y() - lens.height() / 2.0));
    painter.setBrush(pixels);
    disc(lensRadius);

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 28), 0.5 * scale));
    disc(bandRadius);
    painter.setPen(QPen(QColor(0, 0, 0, 61), 0.5 * scale));
    disc(lensRadius);
}

/// The frame of the centre cell; its widths are whole device pixels, so that its sides stay sharp.
void paintCentreFrame(QPainter& painter, QRectF cell, const QColor& picked, double scale)
{
    const double white = std::round(2 * scale);
    const double dark = std::max(1.0, std::round(scale));
    const double innerRadius = 1.4 * scale;
    const auto box = [&](double grown, const QColor& color) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRoundedRect(
            cell.adjusted(-grown, -grown, grown, grown), innerRadius + grown, innerRadius + grown);
    };
    box(white + dark, QColor(0, 0, 0, 140));
    box(white, Qt::white);
    box(0, picked);
}

struct Label {
    QRectF box;
    QFont hexFont;
    QFont nameFont;
    QString hex;
    QString name;
};

Label layOutLabel(const ColorDescription& description, QPointF centre, const LoupeMonitor& monitor)
{
    const double scale = monitor.scale;
    Label label;
    label.hexFont = fontOf(
        { .size = hexSize * scale, .weight = QFont::Medium, .design = FontDesign::monospaced });
    label.nameFont = fontOf({ .size = nameSize * scale });
    label.hex = QString::fromStdString(description.hex);
    label.name = QString::fromStdString(description.name);
    const double text = std::max(QFontMetricsF(label.hexFont).horizontalAdvance(label.hex),
        QFontMetricsF(label.nameFont).horizontalAdvance(label.name));
    const double width = 2 * std::ceil(text / 2 + labelPadding * scale);
    const double height
        = std::round((label.name.isEmpty() ? labelHeightWithoutName : labelHeight) * scale);
    const double margin = std::ceil(labelOutline * scale);
    const QRectF room = QRectF(monitor.geometry).adjusted(margin, margin, -margin, -margin);

    const double below = std::round(centre.y() + labelDistance * scale);
    const double above = std::round(centre.y() - labelDistance * scale - height);
    const double top = below + height <= room.bottom() || above < room.top() ? below : above;
    const double left = std::round(centre.x() - width / 2);
    label.box
        = QRectF(std::max(room.left(), std::min(left, room.right() - width)), top, width, height);
    return label;
}

void paintLabel(QPainter& painter, const Label& label, const Theme& theme, double scale)
{
    const double outline = labelOutline * scale;
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.menuOutline);
    painter.drawPath(smoothRoundedRect(
        label.box.adjusted(-outline, -outline, outline, outline), labelRadius * scale + outline));
    painter.setBrush(theme.menuBackground);
    painter.drawPath(smoothRoundedRect(label.box, labelRadius * scale));

    const auto line
        = [&](const QFont& font, const QString& text, double baseline, const QColor& ink) {
              const double width = QFontMetricsF(font).horizontalAdvance(text);
              painter.setFont(font);
              painter.setPen(ink);
              painter.drawText(QPointF(label.box.center().x() - width / 2,
                                   label.box.top() + std::round(baseline * scale)),
                  text);
          };
    line(label.hexFont, label.hex, hexBaseline, theme.text);
    line(label.nameFont, label.name, nameBaseline, theme.secondary);
}

} // namespace

LoupePainter::LoupePainter(const Theme& theme)
    : theme_(theme)
{
}

int LoupePainter::cellSize(double scale)
{
    return static_cast<int>(std::lround(cellPoints * scale));
}

void LoupePainter::makeShadows(double scale)
{
    if (shadowScale_ == scale)
        return;
    shadowScale_ = scale;
    labelShadow_.emplace(labelRadius * scale, labelDrop.sigma * scale);
    const int reach = static_cast<int>(std::ceil(fullReach * scale));
    QImage image(2 * reach, 2 * reach, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            double light = 1;
            for (const auto& shadow : ringShadows) {
                const double distance
                    = std::hypot(x + 0.5 - reach, y + 0.5 - reach - shadow.y * scale);
                light *= 1
                    - shadow.opacity * gaussianBelow(77 * scale - distance, shadow.sigma * scale);
            }
            line[x] = qRgba(0, 0, 0, static_cast<int>(std::lround((1 - light) * 255)));
        }
    }
    ringShadow_ = std::move(image);
}

LoupePicture LoupePainter::paint(const QImage& frozen, QPoint pixel, const LoupeMonitor& monitor,
    const ColorDescription& description)
{
    const double scale = monitor.scale;
    const int cell = cellSize(scale);
    const QRect centreCell(pixel - QPoint(cell / 2, cell / 2), QSize(cell, cell));
    const QPointF centre = QRectF(centreCell).center();
    const Label label = layOutLabel(description, centre, monitor);

    const double reach = fullReach * scale;
    const QRectF around(centre.x() - reach, centre.y() - reach, 2 * reach, 2 * reach);
    const double labelReach = (labelDrop.y + 3 * labelDrop.sigma) * scale;
    const QRect area
        = around.united(label.box.adjusted(-labelReach, -labelReach, labelReach, labelReach))
              .toAlignedRect()
              .intersected(frozen.rect());
    QImage image = frozen.copy(area).convertToFormat(QImage::Format_RGB32);
    const QColor picked = frozen.pixelColor(pixel);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-area.topLeft());
    makeShadows(scale);
    labelShadow_->paint(
        painter, label.box.translated(0, labelDrop.y * scale), faded(Qt::black, labelDrop.opacity));
    paintLabel(painter, label, theme_, scale);
    painter.drawImage(
        centre - QPointF(ringShadow_.width() / 2.0, ringShadow_.height() / 2.0), ringShadow_);
    paintRing(painter, centre, magnified(frozen, pixel, scale), picked, scale);
    paintCentreFrame(painter, centreCell, picked, scale);
    painter.end();
    return { area.topLeft(), std::move(image) };
}

} // namespace platform
