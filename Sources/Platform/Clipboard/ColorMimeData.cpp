#include "ColorMimeData.h"

#include "ToolkitColor.h"

#include <QGuiApplication>
#include <QMimeData>

namespace platform {

bool sessionCarriesColors()
{
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

std::unique_ptr<QMimeData> colorMimeData(const ColorContent& content, bool withColor)
{
    auto data = std::make_unique<QMimeData>();
    if (const QColor color = toQColor(content.color); withColor && color.isValid())
        data->setColorData(color);
    data->setText(QString::fromStdString(content.text));
    return data;
}

PastedContent pastedContent(const QMimeData& data)
{
    PastedContent content { std::nullopt, data.text().toStdString() };
    if (const auto color = qvariant_cast<QColor>(data.colorData()); color.isValid())
        content.color = fromQColor(color);
    return content;
}

} // namespace platform
