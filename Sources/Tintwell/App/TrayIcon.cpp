#include "TrayIcon.h"

#include "Symbols.h"

#include <QPainter>

namespace tintwell {

QPixmap paintTrayIcon(int size, const QColor& ink)
{
    // A box of 22 leaves 2 free on each side.
    const double margin = size * 2 / 22.0;
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    platform::paintSymbol(painter, platform::Symbol::eyedropperHalf,
        QRectF(pixmap.rect()).adjusted(margin, margin, -margin, -margin), ink);
    return pixmap;
}

} // namespace tintwell
