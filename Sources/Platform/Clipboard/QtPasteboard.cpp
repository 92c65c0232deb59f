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

PastedContent QtPasteboard::read() const
{
    const auto* data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr ? pastedContent(*data) : PastedContent {};
}

} // namespace platform
