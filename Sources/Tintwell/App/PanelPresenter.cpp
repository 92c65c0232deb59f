#include "PanelPresenter.h"

#include "TrayIcon.h"
#include "WindowsAside.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace tintwell {

namespace {

using Presence = platform::StatusItem::Presence;

/// Trays are at the far end of the bar: the edge of the screen that is not available.
QRect likelyItemPlace()
{
    const auto* screen = QGuiApplication::primaryScreen();
    const auto whole = screen->geometry();
    const auto free = screen->availableGeometry();
    const bool barIsBelow = whole.bottom() - free.bottom() > free.top() - whole.top();
    return { whole.right() - 1, barIsBelow ? whole.bottom() : whole.top(), 1, 1 };
}

/// The panel's window or the preview window.
bool hasOpenWindow()
{
    const auto windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && dynamic_cast<const platform::ContentWindow*>(window);
    });
}

} // namespace

PanelPresenter::PanelPresenter(const char* applicationID, DesktopServices& services)
    : panel_(services,
        { .pickEnded = [this] { pickEnded(); },
            .closed = [this] { windowClosed(); },
            .escape =
                [this] {
                    // The item brings the window back.
                    if (hasTray())
                        panel_.window().hide();
                } })
    , item_({ applicationID, "Tintwell",
                { { "Open Tintwell", [this] { show(); } }, { "Sample", [this] { sample(); } },
                    { "Quit Tintwell", [] { QApplication::quit(); } } } },
          { [this](const auto& place) { itemActivated(place); },
              [this](Presence presence) { trayChanged(presence); } },
          paintTrayIcon)
{
}

void PanelPresenter::show()
{
    standsIn_ = false;
    if (panel_.openWindow() == nullptr && canDock())
        panel_.panel().openBeside(anchor());
    else
        panel_.window().present();
}

void PanelPresenter::itemActivated(const std::optional<platform::ScreenRect>& place)
{
    if (place)
        lastPlace_ = QRect(place->x, place->y, place->width, place->height);
    auto* window = panel_.openWindow();
    if (window != nullptr && window->isActiveWindow())
        window->hide();
    else if (window == nullptr && canDock())
        panel_.panel().toggle(anchor());
    else
        panel_.window().present();
}

/// The picked colour shows in the panel, so it opens when the pick is over.
void PanelPresenter::sample()
{
    if (panel_.model().isSampling())
        return;
    showsAfterPick_ = true;
    panel_.model().beginSampling();
}

void PanelPresenter::pickEnded()
{
    if (std::exchange(showsAfterPick_, false))
        show();
    else if (item_.presence() == Presence::absent)
        standIn();
}

void PanelPresenter::trayChanged(Presence presence)
{
    if (presence == Presence::absent)
        standIn();
    // Nobody asked for the window and nobody has touched it, and the item is there after all.
    if (presence == Presence::shown && std::exchange(standsIn_, false)
        && !panel_.window().wasUsed())
        panel_.window().hide();
}

void PanelPresenter::standIn()
{
    // Windows that make room for a pick come back.
    if (hasOpenWindow() || platform::areWindowsAside())
        return;
    panel_.window().present();
    standsIn_ = true;
}

/// Without an item nobody could reach a process that shows no window.
void PanelPresenter::windowClosed()
{
    if (item_.presence() == Presence::absent && !hasOpenWindow())
        QApplication::quit();
}

QRect PanelPresenter::anchor() const
{
    if (const auto place = item_.place())
        return { place->x, place->y, place->width, place->height };
    return lastPlace_.value_or(likelyItemPlace());
}

bool PanelPresenter::hasTray() const
{
    return item_.presence() == Presence::shown;
}

bool PanelPresenter::canDock() const
{
    return hasTray() && QGuiApplication::platformName() == QStringLiteral("xcb");
}

} // namespace tintwell
