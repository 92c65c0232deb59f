#include "QtPasteboard.h"

#include "ColorMimeData.h"

#include <QClipboard>
#include <QColor>
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
    if (data == nullptr)
        return {};
    PastedContent content { std::nullopt, data->text().toStdString() };
    if (const auto color = qvariant_cast<QColor>(data->colorData()); color.isValid())
        content.color = Color { color.redF(), color.greenF(), color.blueF(), color.alphaF() };
    return content;
}

} // namespace platform
