#include "ColorMimeData.h"

#include <QGuiApplication>
#include <QMimeData>

namespace platform {

QColor toQColor(const Color& color)
{
    const auto converted = inSRGB(color);
    if (!converted)
        return {};
    return { toByte(converted->red), toByte(converted->green), toByte(converted->blue),
        toByte(converted->alpha) };
}

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

} // namespace platform
