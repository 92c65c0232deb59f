#include "ColorDrag.h"

#include "ColorMimeData.h"
#include "Shapes.h"
#include "SwatchPainting.h"
#include "ToolkitColor.h"
#include "X11Display.h"

#include <QBitmap>
#include <QDrag>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QRegion>
#include <QTimer>
#include <QWindow>

#include <array>
#include <utility>

namespace platform {

namespace {

bool isRunning = false;

constexpr QRectF frame(0, 0, 36, 36);
constexpr double radius = 9;

QImage emptyPicture(const QSizeF& size, double pixelRatio)
{
    QImage image((size * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    return image;
}

bool hasCompositor()
{
    const auto display = X11Display::current();
    return !display || display->hasCompositor();
}

/// What hangs under the pointer.
QPixmap pictureOf(const QColor& color, double pixelRatio)
{
    auto picture = emptyPicture(frame.size(), pixelRatio);
    QPainter painter(&picture);
    paintSwatch(painter, frame, hasCompositor() ? radius : 0, color);
    painter.end();
    return QPixmap::fromImage(std::move(picture));
}

/// Without a compositor the toolkit fills what is transparent with white, so there the window
/// itself gets the round corners.
void roundCorners()
{
    auto picture = emptyPicture(frame.size(), 1);
    QPainter painter(&picture);
    painter.fillPath(smoothRoundedRect(frame, radius), Qt::black);
    painter.end();
    const QRegion shape(QBitmap::fromImage(picture.createAlphaMask()));
    for (auto* window : QGuiApplication::topLevelWindows())
        if (window->inherits("QShapedPixmapWindow"))
            window->setMask(shape);
}

/// The toolkit shows its own cursors in a drag, "not allowed" over all that takes no colour, unless
/// it is given pictures, and those of the desktop's theme cannot be had.
QPixmap closedHand(double pixelRatio)
{
    constexpr QSizeF size(24, 24);
    constexpr double line = 1.2;
    constexpr double knuckle = 3.1;
    QPainterPath hand;
    hand.setFillRule(Qt::WindingFill);
    hand.addRoundedRect(QRectF(6, 10, 4 * knuckle, 9.5), 3.6, 3.6);
    hand.addRoundedRect(QRectF(3.6, 11.4, 5, 5.2), 2.4, 2.4);
    constexpr std::array tops { 8.2, 7.2, 7.4, 8.4 };
    QPainterPath gaps;
    for (std::size_t finger = 0; finger < tops.size(); ++finger) {
        const double left = 6 + static_cast<double>(finger) * knuckle;
        hand.addRoundedRect(QRectF(left, tops.at(finger), knuckle, 7), knuckle / 2, knuckle / 2);
        if (finger > 0) {
            gaps.moveTo(left, 9.4);
            gaps.lineTo(left, 12);
        }
    }
    auto picture = emptyPicture(size, pixelRatio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::white);
    painter.drawPath(hand.simplified());
    painter.drawPath(gaps);
    painter.end();
    // The middle, where the pointer points, is reckoned in pixels.
    picture.setDevicePixelRatio(1);
    return QPixmap::fromImage(std::move(picture));
}

} // namespace

void runColorDrag(const QColor& color, double pixelRatio)
{
    const auto picture = pictureOf(color, pixelRatio);
    isRunning = true;
    // The toolkit deletes a drag together with its source, even while it runs; only the application
    // is sure to stay.
    auto* const drag = new QDrag(qGuiApp);
    drag->setMimeData(colorMimeData(contentOf(color)).release());
    drag->setPixmap(picture);
    drag->setHotSpot(QRectF(QPointF(), picture.deviceIndependentSize()).center().toPoint());
    for (const auto action : { Qt::CopyAction, Qt::IgnoreAction })
        drag->setDragCursor(closedHand(pixelRatio), action);
    if (!hasCompositor())
        QTimer::singleShot(0, drag, roundCorners);
    drag->exec(Qt::CopyAction);
    isRunning = false;
    // Who did not listen during the drag hears now where the focus is.
    Q_EMIT qGuiApp->focusWindowChanged(QGuiApplication::focusWindow());
}

bool isColorDragRunning()
{
    return isRunning;
}

} // namespace platform
