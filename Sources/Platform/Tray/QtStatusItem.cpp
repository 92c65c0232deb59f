// The status item: follows the tray from one kind to the other.
#include "QtStatusItem.h"

#include "DesktopSession.h"
#include "EmbeddedItem.h"
#include "NotifierItem.h"
#include "StatusIcon.h"
#include "ThemeSource.h"
#include "TrayWatch.h"
#include "X11Display.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QPoint>
#include <QTimer>

#include <chrono>

namespace platform {

namespace {

/// How long the item waits for a tray, at the start and after one has gone, before the desktop
/// counts as one without. A tray that comes later is still used.
constexpr std::chrono::milliseconds graceTime { 2000 };

class QtStatusItem final : public StatusItem {
public:
    QtStatusItem(Content content, Events events, StatusIconPainter paintIcon)
        : content_(std::move(content))
        , events_(std::move(events))
        , icon_(std::move(paintIcon))
    {
        QObject::connect(&watch_, &TrayWatch::changed, &watch_, [this] { follow(); });
        QObject::connect(&watch_, &TrayWatch::watcherStarted, &watch_, [this] {
            if (notifier_)
                notifier_->announce();
        });
        QObject::connect(
            &ThemeSource::instance(), &ThemeSource::changed, &watch_, [this] { followTheme(); });
        QObject::connect(
            &grace_, &QTimer::timeout, &watch_, [this] { setPresence(Presence::absent); });
        grace_.setSingleShot(true);
        grace_.start(graceTime);
        QTimer::singleShot(0, &watch_, [this] { follow(); });
    }

    [[nodiscard]] Presence presence() const override { return presence_; }

    [[nodiscard]] std::optional<ScreenRect> place() const override
    {
        const auto rect = embedded_ ? embedded_->place() : QRect();
        if (rect.isEmpty())
            return std::nullopt;
        return ScreenRect { rect.x(), rect.y(), rect.width(), rect.height() };
    }

private:
    void follow()
    {
        using Tray = TrayWatch::Tray;
        const auto tray = watch_.tray();
        if (tray == Tray::unknown)
            return;
        // One X11 tray may have handed over to the next.
        if (tray == tray_ && embedded_)
            embedded_->followBar();
        if (tray == tray_)
            return;
        tray_ = tray;
        notifier_.reset();
        embedded_.reset();
        switch (tray) {
        case Tray::notifier:
            showNotifier();
            break;
        case Tray::embedding:
            showEmbedded();
            break;
        case Tray::none:
        case Tray::unknown:
            break;
        }
        if (tray != Tray::none)
            setPresence(Presence::shown);
        else if (presence_ == Presence::shown)
            setPresence(Presence::waiting);
    }

    void showNotifier()
    {
        notifier_ = std::make_unique<NotifierItem>(content_, StatusIcon::themeName(content_.id),
            NotifierItem::Handlers { [this](QPoint hint) { activate(hint); },
                [this](QPoint hint) { popUpMenu(hint); } });
        notifier_->setIcon(icon_.pixmaps(StatusIcon::likelyBar()));
        notifier_->announce();
    }

    void showEmbedded()
    {
        embedded_ = std::make_unique<EmbeddedItem>(content_, icon_,
            EmbeddedItem::Handlers { [this] { activate({}); }, [this] { popUpMenu({}); } });
    }

    /// The bar mostly changes with the desktop's appearance.
    void followTheme()
    {
        if (notifier_)
            notifier_->setIcon(icon_.pixmaps(StatusIcon::likelyBar()));
        if (embedded_)
            embedded_->followBar();
    }

    void activate(QPoint hint) const
    {
        if (const auto item = place())
            return events_.activated(item);
        const auto click = clickPlace(hint);
        events_.activated(
            click ? std::optional(ScreenRect { click->x(), click->y(), 1, 1 }) : std::nullopt);
    }

    /// The pointer is on the item that it clicks; only X11 tells where that is. On a Wayland
    /// desktop its emulation knows the pointer over X11 windows only, so there the tray's own hint
    /// counts, if it gives one.
    [[nodiscard]] static std::optional<QPoint> clickPlace(QPoint hint)
    {
        if (!X11Display::current())
            return std::nullopt;
        if (!isWaylandSession())
            return QCursor::pos();
        return hint.isNull() ? std::nullopt : std::optional(hint);
    }

    /// For trays that leave the menu to the item.
    void popUpMenu(QPoint hint)
    {
        if (!menu_) {
            menu_ = std::make_unique<QMenu>();
            for (const auto& entry : content_.menu)
                menu_->addAction(QString::fromStdString(entry.title), entry.action);
        }
        menu_->popup(clickPlace(hint).value_or(QCursor::pos()));
    }

    void setPresence(Presence presence)
    {
        if (presence_ == presence)
            return;
        presence_ = presence;
        if (presence == Presence::waiting)
            grace_.start(graceTime);
        else
            grace_.stop();
        events_.presenceChanged(presence);
    }

    Content content_;
    Events events_;
    StatusIcon icon_;
    TrayWatch watch_;
    QTimer grace_;
    TrayWatch::Tray tray_ = TrayWatch::Tray::unknown;
    Presence presence_ = Presence::waiting;
    std::unique_ptr<NotifierItem> notifier_;
    std::unique_ptr<EmbeddedItem> embedded_;
    std::unique_ptr<QMenu> menu_;
};

} // namespace

std::unique_ptr<StatusItem> makeStatusItem(
    StatusItem::Content content, StatusItem::Events events, StatusIconPainter paintIcon)
{
    return std::make_unique<QtStatusItem>(
        std::move(content), std::move(events), std::move(paintIcon));
}

} // namespace platform
