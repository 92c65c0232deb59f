#include "ColorDrag.h"

#include "ColorMimeData.h"
#include "SwatchPainting.h"
#include "ToolkitColor.h"

#include <QCursor>
#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QPixmap>

namespace platform {

namespace {

bool isRunning = false;

/// What hangs under the pointer.
QPixmap pictureOf(const QColor& color, double pixelRatio)
{
    constexpr QRectF frame(0, 0, 36, 36);
    constexpr double radius = 9;
    QPixmap pixmap((frame.size() * pixelRatio).toSize());
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paintSwatch(painter, frame, radius, color);
    return pixmap;
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
    QGuiApplication::setOverrideCursor(Qt::ClosedHandCursor);
    drag->exec(Qt::CopyAction);
    QGuiApplication::restoreOverrideCursor();
    isRunning = false;
    // Who did not listen during the drag hears now where the focus is.
    Q_EMIT qGuiApp->focusWindowChanged(QGuiApplication::focusWindow());
}

bool isColorDragRunning()
{
    return isRunning;
}

} // namespace platform
