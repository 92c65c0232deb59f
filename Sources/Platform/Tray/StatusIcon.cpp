#include "StatusIcon.h"

#include "ThemeSource.h"

#include <QStandardPaths>

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr std::array iconSizes { 16, 22, 24, 32, 48 };
constexpr QRgb inkOnLight = 0xFF2A2A2E;
constexpr QRgb inkOnDark = 0xFFF2F2F4;

/// True if `wanted` is one of the names of the running desktop ("ubuntu:GNOME").
bool desktopIs(const char* wanted)
{
    const auto names = qgetenv("XDG_CURRENT_DESKTOP").split(':');
    return std::any_of(names.begin(), names.end(), [wanted](const QByteArray& name) {
        return name.compare(wanted, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

StatusIcon::StatusIcon(StatusIconPainter paint)
    : paint_(std::move(paint))
{
}

QList<QPixmap> StatusIcon::pixmaps(Bar bar) const
{
    const QColor ink = QColor::fromRgb(bar == Bar::light ? inkOnLight : inkOnDark);
    QList<QPixmap> sizes;
    for (const int size : iconSizes)
        sizes.append(paint_(size, ink));
    return sizes;
}

StatusIcon::Bar StatusIcon::barOfColor(const QColor& color)
{
    return qGray(color.rgb()) < 128 ? Bar::dark : Bar::light;
}

StatusIcon::Bar StatusIcon::likelyBar()
{
    static constexpr std::array alwaysDark { "GNOME", "Unity", "sway" };
    if (std::any_of(alwaysDark.begin(), alwaysDark.end(), desktopIs))
        return Bar::dark;
    return ThemeSource::instance().appearance() == Appearance::dark ? Bar::dark : Bar::light;
}

QString StatusIcon::themeName(const std::string& id)
{
    static constexpr std::array recolouring { "GNOME", "KDE", "Unity", "X-Cinnamon", "Budgie" };
    if (std::none_of(recolouring.begin(), recolouring.end(), desktopIs))
        return {};
    const auto name = QString::fromStdString(id) + QStringLiteral("-symbolic");
    const auto file = QStringLiteral("icons/hicolor/symbolic/apps/%1.svg").arg(name);
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty() ? QString()
                                                                                       : name;
}

} // namespace platform
