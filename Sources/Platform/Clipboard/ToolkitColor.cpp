#include "ToolkitColor.h"

namespace platform {

QColor toQColor(const Color& color)
{
    const auto converted = inSRGB(color);
    if (!converted)
        return {};
    return { toByte(converted->red), toByte(converted->green), toByte(converted->blue),
        toByte(converted->alpha) };
}

Color fromQColor(const QColor& color)
{
    return { color.redF(), color.greenF(), color.blueF(), color.alphaF() };
}

QString hexText(const QColor& color)
{
    return color.name().toUpper();
}

ColorContent contentOf(const QColor& color)
{
    return { fromQColor(color), hexText(color).toStdString() };
}

} // namespace platform
