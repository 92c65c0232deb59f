// The status icon in every size that trays ask for, dark or light after the bar that it stands on.
#pragma once

#include <QColor>
#include <QList>
#include <QPixmap>
#include <QString>

#include <functional>
#include <string>

namespace platform {

/// Draws the icon in one colour, in a square of `size` pixels.
using StatusIconPainter = std::function<QPixmap(int size, const QColor& ink)>;

class StatusIcon {
public:
    enum class Bar { light, dark };

    explicit StatusIcon(StatusIconPainter paint);

    [[nodiscard]] QList<QPixmap> pixmaps(Bar bar) const;

    /// The bar that the desktop and its appearance suggest, where it cannot be seen.
    [[nodiscard]] static Bar likelyBar();
    [[nodiscard]] static Bar barOfColor(const QColor& color);

    /// The name of the symbolic icon, if it is installed and the desktop's tray recolours such
    /// icons; else empty.
    [[nodiscard]] static QString themeName(const std::string& id);

private:
    StatusIconPainter paint_;
};

} // namespace platform
