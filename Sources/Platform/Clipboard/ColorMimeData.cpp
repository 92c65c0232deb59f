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

PastedContent pastedContent(const QMimeData& data)
{
    PastedContent content { std::nullopt, data.text().toStdString() };
    if (const auto color = qvariant_cast<QColor>(data.colorData()); color.isValid())
        content.color = Color { color.redF(), color.greenF(), color.blueF(), color.alphaF() };
    return content;
}

} // namespace platform
