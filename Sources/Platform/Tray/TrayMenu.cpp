#include "TrayMenu.h"

#include "Metrics.h"
#include "Shapes.h"
#include "ThemeSource.h"
#include "X11Display.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

namespace platform {

namespace {

/// Around the menu.
constexpr int shadowRoom = 56;

} // namespace

TrayMenu::TrayMenu()
    : QWidget(nullptr, Qt::Popup | Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_X11NetWmWindowTypePopupMenu);
}

void TrayMenu::open(const QPoint& place, const QString& name, std::vector<MenuItem> items)
{
    const auto display = X11Display::current();
    const bool isComposited = display && display->hasCompositor();
    const auto* screen = QGuiApplication::screenAt(place);
    const auto desktop
        = (screen != nullptr ? screen : QGuiApplication::primaryScreen())->geometry();
    auto* window = new TrayMenu;
    window->setAttribute(Qt::WA_TranslucentBackground, isComposited);
    // The menu says how large it is where it has all the room there is.
    window->resize(desktop.size());
    const int room = isComposited ? shadowRoom : Metrics::menuGap;
    auto* menu = PopupMenu::openAt(*window, { QPoint(room, room), QSize() }, name, std::move(items),
        neutralTint(currentTheme()));
    QRect plate(place, menu->plate().size());
    if (plate.right() > desktop.right())
        plate.moveRight(place.x());
    if (plate.bottom() > desktop.bottom())
        plate.moveBottom(place.y());
    window->setGeometry(plate.marginsAdded(QMargins() + room));
    menu->installEventFilter(window);
    if (!isComposited) {
        const auto outside = menu->plate().marginsAdded(QMargins() + 1);
        window->setMask(
            smoothRoundedRect(outside, Metrics::menuRadius + 1).toFillPolygon().toPolygon());
    }
    window->show();
}

bool TrayMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide) {
        hide();
        deleteLater();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace platform
