#include "StatusItem.h"

#include "DesktopSession.h"
#include "NotifierItem.h"
#include "ThemeSource.h"
#include "TrayMenu.h"
#include "TrayWatch.h"
#include "X11Display.h"
#include "X11TrayItem.h"

#include <QCursor>
#include <QGuiApplication>

#include <chrono>
#include <utility>

namespace platform {

namespace {

/// How long the item waits for a tray after one has gone, and while a desktop starts, before the
/// desktop counts as one without. A tray that comes later is still used.
constexpr std::chrono::seconds restartTime { 2 };
constexpr std::chrono::seconds desktopStartTime { 15 };

/// The pointer is on the item that it clicks; only X11 tells where that is. On a Wayland desktop,
/// whose X server knows the pointer over X11 windows only, the tray's own hint counts, if it gives
/// one.
std::optional<QPoint> clickPlace(QPoint hint)
{
    if (isWaylandSession())
        return hint.isNull() ? std::nullopt : std::optional(hint);
    return X11Display::current() ? std::optional(QCursor::pos()) : std::nullopt;
}

} // namespace

StatusItem::StatusItem(
    Content content, Events events, StatusIconPainter paintIcon, FirstTray firstTray)
    : content_(std::move(content))
    , events_(std::move(events))
    , icon_(std::move(paintIcon))
    , watch_(std::make_unique<TrayWatch>())
    , expectsTray_(firstTray == FirstTray::mayBeLate)
{
    QObject::connect(watch_.get(), &TrayWatch::changed, watch_.get(), [this] { followTray(); });
    QObject::connect(watch_.get(), &TrayWatch::watcherStarted, watch_.get(), [this] {
        if (notifier_)
            notifier_->announce();
    });
    QObject::connect(
        &ThemeSource::instance(), &ThemeSource::changed, watch_.get(), [this] { followTheme(); });
    QObject::connect(
        &grace_, &QTimer::timeout, watch_.get(), [this] { setPresence(Presence::absent); });
    grace_.setSingleShot(true);
    grace_.start(expectsTray_ ? desktopStartTime : restartTime);
    QTimer::singleShot(0, watch_.get(), [this] { followTray(); });
}

StatusItem::~StatusItem() = default;

std::optional<QRect> StatusItem::place() const
{
    const auto rect = inX11Tray_ ? inX11Tray_->place() : QRect();
    return rect.isEmpty() ? std::nullopt : std::optional(rect);
}

void StatusItem::followTray()
{
    using Tray = TrayWatch::Tray;
    const auto tray = watch_->tray();
    const auto current = notifier_ ? Tray::notifier : inX11Tray_ ? Tray::embedding : Tray::none;
    // One X11 tray may have handed over to the next.
    if (tray == current && inX11Tray_)
        inX11Tray_->followBar();
    if (tray == Tray::none && !expectsTray_)
        setPresence(Presence::absent);
    if (tray == current || tray == Tray::unknown)
        return;
    notifier_.reset();
    inX11Tray_.reset();
    if (tray == Tray::none)
        return waitForTray();
    if (tray == Tray::notifier)
        showNotifier();
    else
        showInX11Tray();
    expectsTray_ = true;
    setPresence(Presence::shown);
}

void StatusItem::waitForTray()
{
    if (!notifier_ && !inX11Tray_)
        setPresence(Presence::waiting);
}

void StatusItem::stopWaiting()
{
    if (!notifier_ && !inX11Tray_ && watch_->tray() == TrayWatch::Tray::none)
        setPresence(Presence::absent);
}

void StatusItem::showNotifier()
{
    notifier_ = std::make_unique<NotifierItem>(content_, StatusIcon::themeName(content_.id),
        NotifierItem::Handlers { [this](QPoint hint) { activate(hint); }, events_.middleClicked,
            [this](QPoint hint) { popUpMenu(hint); } });
    notifier_->setIcon(icon_.pixmaps(StatusIcon::likelyBar()));
    notifier_->announce();
}

void StatusItem::showInX11Tray()
{
    inX11Tray_ = std::make_unique<X11TrayItem>(content_, icon_,
        X11TrayItem::Handlers {
            [this] { activate({}); }, events_.middleClicked, [this] { popUpMenu({}); } });
}

/// The bar mostly changes with the desktop's appearance.
void StatusItem::followTheme()
{
    if (notifier_)
        notifier_->setIcon(icon_.pixmaps(StatusIcon::likelyBar()));
    if (inX11Tray_)
        inX11Tray_->followBar();
}

void StatusItem::activate(QPoint hint) const
{
    if (const auto item = place())
        return events_.activated(item);
    const auto click = clickPlace(hint);
    events_.activated(click ? std::optional(QRect(*click, QSize(1, 1))) : std::nullopt);
}

/// For trays that leave the menu to the item. On Wayland a menu needs a window of ours below it: it
/// would come as a window itself, on sway over the whole screen.
void StatusItem::popUpMenu(QPoint hint) const
{
    if (QGuiApplication::platformName().startsWith(QStringLiteral("wayland")))
        return activate(hint);
    std::vector<MenuItem> items;
    for (const auto& entry : content_.menu)
        items.push_back({ QString::fromStdString(entry.title), {}, entry.action,
            entry.isOn ? std::optional(entry.isOn()) : std::nullopt });
    TrayMenu::open(clickPlace(hint).value_or(QCursor::pos()),
        QString::fromStdString(content_.title), std::move(items));
}

void StatusItem::setPresence(Presence presence)
{
    if (presence_ == presence)
        return;
    presence_ = presence;
    if (presence == Presence::waiting)
        grace_.start(restartTime);
    else
        grace_.stop();
    events_.presenceChanged(presence);
}

} // namespace platform
