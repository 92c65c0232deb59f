#include "X11TrayItem.h"

#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QScreen>
#include <QTimer>

#include <array>
#include <chrono>

namespace platform {

namespace {

using namespace std::chrono_literals;

/// By the first the tray has mostly placed the item, or painted its bar anew; the second is for
/// slow ones.
constexpr std::array<std::chrono::milliseconds, 2> lookTimes { 300ms, 1500ms };

} // namespace

X11TrayItem::X11TrayItem(
    const StatusItem::Content& content, const StatusIcon& icon, Handlers handlers)
    : icon_(icon)
    , bar_(StatusIcon::likelyBar())
{
    QObject::connect(&item_, &QSystemTrayIcon::activated, &item_,
        [handlers = std::move(handlers)](QSystemTrayIcon::ActivationReason reason) {
            // The second of two quick clicks.
            if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
                handlers.activated();
            else if (reason == QSystemTrayIcon::MiddleClick)
                handlers.middleClicked();
            else if (reason == QSystemTrayIcon::Context)
                handlers.menuWanted();
        });
    item_.setToolTip(QString::fromStdString(content.title));
    setIcon(bar_);
    item_.show();
    followBar();
}

void X11TrayItem::followBar()
{
    for (const auto time : lookTimes)
        QTimer::singleShot(time, &item_, [this] { matchBar(); });
}

void X11TrayItem::setIcon(StatusIcon::Bar bar)
{
    bar_ = bar;
    QIcon icon;
    for (const auto& pixmap : icon_.pixmaps(bar))
        icon.addPixmap(pixmap);
    item_.setIcon(icon);
}

void X11TrayItem::matchBar()
{
    const auto corner = item_.geometry().topLeft();
    auto* screen = QGuiApplication::screenAt(corner);
    if (item_.geometry().isEmpty() || screen == nullptr)
        return;
    const auto place = corner - screen->geometry().topLeft();
    const auto pixel = screen->grabWindow(0, place.x(), place.y(), 1, 1).toImage();
    if (pixel.isNull())
        return;
    if (const auto bar = StatusIcon::barOfColor(pixel.pixelColor(0, 0)); bar != bar_)
        setIcon(bar);
}

} // namespace platform
