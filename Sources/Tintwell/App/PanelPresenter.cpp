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
    const auto free = platform::PanelWindow::availableGeometry(*screen);
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

PanelPresenter::PanelPresenter(const char* applicationID, DesktopServices& services,
    Settings& settings, platform::StatusItem::FirstTray firstTray)
    : services_(services)
    , settings_(settings)
    , panel_(services,
          { .keepsOpen = [this] { return settings_.keepsOpen(); },
              .pickEnded = [this] { pickEnded(); },
              .closed = [this] { windowClosed(); },
              .escape =
                  [this] {
                      // The item brings the window back.
                      if (hasTray())
                          panel_.window().hide();
                  } })
    , item_({ applicationID, "Tintwell", menu() },
          { [this](const auto& place) { itemActivated(place); }, [this] { pick({}); },
              [this](Presence presence) { trayChanged(presence); } },
          paintTrayIcon, firstTray)
{
    // A lock screen may take the tray away, and gives it back no sooner than the screen.
    QObject::connect(
        &lock_, &platform::ScreenLock::unlocked, &lock_, [this] { item_.waitForTray(); });
}

std::vector<platform::StatusItem::MenuEntry> PanelPresenter::menu()
{
    return { { "Open Tintwell", [this] { show(); } }, { "Sample", [this] { sample(); } },
        { "Keep Open", [this] { settings_.setKeepsOpen(!settings_.keepsOpen()); },
            [this] { return settings_.keepsOpen(); } },
        { "Quit Tintwell", [] { QApplication::quit(); } } };
}

void PanelPresenter::show()
{
    standsIn_ = false;
    if (panel_.openWindow() == nullptr && canDock())
        panel_.panel().openBeside(anchor());
    else
        panel_.window().present();
    // The desktop is up: somebody uses it.
    item_.stopWaiting();
}

void PanelPresenter::itemActivated(const std::optional<QRect>& place)
{
    if (place)
        lastPlace_ = place;
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

void PanelPresenter::pick(const platform::SingleInstance::Answer& answer)
{
    panel_.model().sampleFromScreen([this, answer](const std::optional<RGBAColor>& color) {
        using Kind = platform::ActionResult::Kind;
        if (color)
            copySource();
        if (!answer)
            return;
        if (color)
            answer({ Kind::done, color->hex() });
        else if (services_.canPick())
            answer({ Kind::cancelled });
        else
            answer({ Kind::impossible, "This desktop offers no way to pick a color." });
    });
}

/// On Wayland only the program with the focus may copy, so there the panel shows what was picked.
void PanelPresenter::copySource()
{
    if (!QGuiApplication::platformName().startsWith(QStringLiteral("wayland"))
        || QGuiApplication::focusWindow() != nullptr)
        return panel_.model().copySource();
    QObject::connect(
        qGuiApp, &QGuiApplication::focusWindowChanged, &lock_,
        [this] { panel_.model().copySource(); }, Qt::SingleShotConnection);
    show();
}

void PanelPresenter::pickEnded()
{
    if (std::exchange(showsAfterPick_, false))
        show();
    item_.stopWaiting();
    if (item_.presence() == Presence::absent)
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
    if (hasOpenWindow() || platform::areWindowsAside() || lock_.isLocked())
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
    return item_.place().value_or(lastPlace_.value_or(likelyItemPlace()));
}

bool PanelPresenter::hasTray() const
{
    return item_.presence() == Presence::shown;
}

bool PanelPresenter::canDock() const
{
    return hasTray() && platform::PanelWindow::isPossible();
}

} // namespace tintwell
