#include "QtPasteboard.h"

#include "ColorMimeData.h"
#include "X11Selection.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace platform {

void QtPasteboard::write(const ColorContent& content)
{
    QGuiApplication::clipboard()->setMimeData(colorMimeData(content).release());
}

Result<PastedContent> QtPasteboard::read() const
{
    const auto* clipboard = QGuiApplication::clipboard();
    if (!clipboard->ownsClipboard())
        if (auto content = readX11Selection("CLIPBOARD"))
            return std::move(*content);
    const auto* data = clipboard->mimeData();
    return data != nullptr ? pastedContent(*data) : PastedContent {};
}

} // namespace platform
