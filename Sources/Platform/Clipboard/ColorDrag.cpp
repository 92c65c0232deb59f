#include "ColorDrag.h"

#include "ColorMimeData.h"

#include <QCursor>
#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>

namespace platform {

namespace {

bool isRunning = false;

} // namespace

void runColorDrag(const ColorContent& content, const QPixmap& picture)
{
    isRunning = true;
    // The toolkit deletes a drag together with its source, even while it runs; only the application
    // is sure to stay.
    auto* const drag = new QDrag(qGuiApp);
    drag->setMimeData(colorMimeData(content).release());
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
