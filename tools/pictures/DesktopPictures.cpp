// What Tintwell shows beside its panel: the tray item, the loupe, and the "Colors" window.
#include "DesktopServices.h"
#include "LoupePainter.h"
#include "PaletteGenerator.h"
#include "PanelFrame.h"
#include "QtColor.h"
#include "Stage.h"
#include "StatusIcon.h"
#include "ThemeSource.h"
#include "TrayIcon.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace tintwell {

namespace {

bool isDark()
{
    return platform::currentTheme().appearance == platform::Appearance::dark;
}

void paintWallpaper(QPainter& painter, const QRectF& area)
{
    QLinearGradient sky(area.topLeft(), area.bottomLeft());
    sky.setColorAt(0, isDark() ? QColor(0xEE, 0xCF, 0xA4) : QColor(0xC3, 0xCC, 0xEC));
    sky.setColorAt(1, isDark() ? QColor(0x8C, 0x5A, 0x5C) : QColor(0x6B, 0x6C, 0xB0));
    painter.fillRect(area, sky);
}

/// The panel with its round corners, outline and shadow on a transparent ground.
QImage framedPanel(const QImage& content, const QRect& panel, QSize size)
{
    QImage layer(size * pictureScale, QImage::Format_ARGB32_Premultiplied);
    layer.setDevicePixelRatio(pictureScale);
    layer.fill(Qt::transparent);
    const platform::PanelFrame frame(true);
    QPainter painter(&layer);
    frame.paintAround(painter, panel);
    painter.drawImage(panel.topLeft(), content);
    const auto corner = frame.cornerSize();
    const int right = panel.right() + 1 - corner.width();
    const int bottom = panel.bottom() + 1 - corner.height();
    for (const QPoint place : { panel.topLeft(), QPoint(right, panel.top()),
             QPoint(panel.left(), bottom), QPoint(right, bottom) }) {
        painter.save();
        painter.setClipRect(QRect(place, corner));
        frame.paintCorner(painter, QRect(place, corner), panel);
        painter.restore();
    }
    return layer;
}

/// The open panel below or above a bar with the item, as a compositing desktop shows it.
QImage tray()
{
    constexpr QSize size(680, 760);
    constexpr int barHeight = 32;
    auto sheet = emptySheet(size);
    QPainter painter(&sheet);
    paintWallpaper(painter, QRect({}, size));
    // A dark bar above in the light appearance, a light one below in the dark one.
    const int barTop = isDark() ? size.height() - barHeight : 0;
    const QRect bar(0, barTop, size.width(), barHeight);
    painter.fillRect(bar, isDark() ? QColor(0xF3, 0xF3, 0xF4) : QColor(0x1B, 0x1B, 0x1D));

    constexpr QSize panelSize(448, 680);
    const int gap = platform::PanelFrame(true).gap();
    const QRect panel(
        { 212, isDark() ? barTop - gap - panelSize.height() : barHeight + gap }, panelSize);
    Stage stage("#6E56CF");
    if (isDark())
        saveLibrary(stage.model());
    painter.drawImage(0, 0, framedPanel(stage.panel(), panel, size));

    const platform::StatusIcon icon(paintTrayIcon);
    const auto barKind
        = platform::StatusIcon::barOfColor(isDark() ? QColor(Qt::white) : QColor(Qt::black));
    auto picture = icon.pixmaps(barKind).at(4);
    picture.setDevicePixelRatio(48 / 22.0);
    painter.drawPixmap(QPointF(490, bar.center().y() - 10.5), picture);
    return sheet;
}

/// The tray icon in every size it is delivered in, pixel for pixel and enlarged.
QImage trayIcons()
{
    auto sheet = emptySheet({ 420, 150 });
    QPainter painter(&sheet);
    const platform::StatusIcon icon(paintTrayIcon);
    const auto bar = isDark() ? platform::StatusIcon::Bar::dark : platform::StatusIcon::Bar::light;
    const auto enlarged = paintTrayIcon(176, isDark() ? Qt::white : Qt::black);
    painter.drawPixmap(QRectF(20, 31, 88, 88), enlarged, QRectF(enlarged.rect()));
    double left = 140;
    for (const auto& picture : icon.pixmaps(bar)) {
        const QSizeF side = QSizeF(picture.size()) / pictureScale;
        painter.drawPixmap(
            QRectF(QPointF(left, 75 - side.height() / 2), side), picture, QRectF(picture.rect()));
        left += side.width() + 24;
    }
    return sheet;
}

/// A screen full of things that somebody wants the colour of.
QImage screen(QSize pixels)
{
    QImage image(pixels, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isDark()) {
        QLinearGradient dusk(0, 0, 0, pixels.height());
        dusk.setColorAt(0, QColor(0x1E, 0x25, 0x4C));
        dusk.setColorAt(0.45, QColor(0x6A, 0x3F, 0x7C));
        dusk.setColorAt(0.75, QColor(0xF0, 0x82, 0x6C));
        painter.fillRect(image.rect(), dusk);
        painter.setBrush(QColor(0xFF, 0xE3, 0xAE));
    } else {
        image.fill(QColor(0xFB, 0xFB, 0xFC));
        painter.setBrush(QColor(0x6E, 0x56, 0xCF));
    }
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPointF(pixels.width() * 0.45, pixels.height() * 0.6), 110, 110);
    return image;
}

QImage loupe()
{
    auto desktop = screen({ 880, 800 });
    // Where the edge of the disc turns from one colour to the other.
    const QPoint pixel(396 + 77, 480 - 78);
    const RGBAColor color = fromQColor(desktop.pixelColor(pixel));
    platform::LoupePainter painter(platform::currentTheme());
    const auto picture = painter.paint(desktop, pixel, { desktop.rect(), pictureScale },
        { color.hex(), ColorNamer().name(OKLCH(color)) });
    QPainter(&desktop).drawImage(picture.topLeft, picture.image);
    return desktop;
}

void clickFirstColor(QWidget& window)
{
    const QPointF place(500, 115);
    auto* row = window.childAt(place.toPoint());
    const auto local = row->mapFrom(&window, place.toPoint());
    for (const auto type : { QEvent::MouseButtonPress, QEvent::MouseButtonRelease }) {
        QMouseEvent event(type, local, row->mapToGlobal(local), Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(row, &event);
    }
    settleWindows();
}

QImage colorsWindow()
{
    DesktopServices services;
    const auto palette = PaletteGenerator().generate(*RGBAColor::fromHex("#6E56CF"));
    const auto installed = MacColorListInstaller(platform::ColorListRegistry(),
        platform::PalettePublisher(platform::PalettePublisher::Folders {}))
                               .install("Tintwell", palette.exportColors(), std::nullopt);
    if (!installed)
        return {};
    services.colorPanel().orderFront(QColor(0x6E, 0x56, 0xCF), {});
    settleWindows();
    for (auto* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowTitle() == QStringLiteral("Colors")) {
            clickFirstColor(*window);
            return window->grab().toImage();
        }
    return {};
}

} // namespace

std::vector<Picture> desktopPictures()
{
    return { { "tray", tray }, { "tray-icons", trayIcons }, { "loupe", loupe },
        { "colors-window", colorsWindow } };
}

} // namespace tintwell
