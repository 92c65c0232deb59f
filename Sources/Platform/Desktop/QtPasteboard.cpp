#include "QtPasteboard.h"

#include "ColorMimeData.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace platform {

void QtPasteboard::write(const ColorContent& content)
{
    QGuiApplication::clipboard()->setMimeData(colorMimeData(content).release());
}

} // namespace platform
