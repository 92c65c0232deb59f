#include "ColorMimeData.h"

#include "ToolkitColor.h"
#include "X11Selection.h"

#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QWidget>

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
    PastedContent content { std::nullopt, data.text().left(longestColorText).toStdString() };
    if (!data.hasColor())
        return content;
    if (const auto color = qvariant_cast<QColor>(data.colorData()); color.isValid())
        content.color = fromQColor(color);
    return content;
}

bool canHoldColor(const QMimeData& data)
{
    return data.hasColor() || data.hasFormat(QStringLiteral("text/plain"));
}

Result<PastedContent> droppedContent(const QDropEvent& event, const QWidget& receiver)
{
    // Of this process's own drag the toolkit has the content.
    if (event.source() == nullptr) {
        auto content = readX11Selection(
            "XdndSelection", static_cast<std::uint32_t>(receiver.window()->winId()));
        // Some programs give what is dragged to nobody but the toolkit.
        const bool isRefused
            = !content || (*content && !content->value().color && content->value().text.empty());
        if (!isRefused)
            return std::move(*content);
    }
    return pastedContent(*event.mimeData());
}

} // namespace platform
