#include "TrayWatch.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QMetaObject>

namespace platform {

namespace {

constexpr QLatin1String watcherName("org.kde.StatusNotifierWatcher");
constexpr QLatin1String watcherPath("/StatusNotifierWatcher");

} // namespace

TrayWatch::TrayWatch()
    : display_(X11Display::current())
{
    if (auto bus = QDBusConnection::sessionBus(); bus.isConnected()) {
        service_ = std::make_unique<QDBusServiceWatcher>(
            watcherName, bus, QDBusServiceWatcher::WatchForOwnerChange);
        connect(service_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
                if (owner.isEmpty())
                    return loseHost();
                askForHost();
                Q_EMIT watcherStarted();
            });
        for (const auto* signal :
            { "StatusNotifierHostRegistered", "StatusNotifierHostUnregistered" })
            bus.connect(watcherName, watcherPath, watcherName, QString::fromLatin1(signal), this,
                SLOT(askForHost()));
        bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
            QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
            SLOT(loseHost()));
        askForHost();
    } else {
        notifierHost_ = false;
    }
    if (display_) {
        selection_ = "_NET_SYSTEM_TRAY_S" + std::to_string(display_->screenNumber());
        selectionAtom_ = display_->atom(selection_);
        managerAtom_ = display_->atom("MANAGER");
        qApp->installNativeEventFilter(this);
        followEmbeddingTray();
    }
}

TrayWatch::~TrayWatch() = default;

TrayWatch::Tray TrayWatch::tray() const
{
    if (!notifierHost_)
        return Tray::unknown;
    if (*notifierHost_)
        return Tray::notifier;
    return embeddingTray() != XCB_WINDOW_NONE ? Tray::embedding : Tray::none;
}

void TrayWatch::askForHost()
{
    auto call = QDBusMessage::createMethodCall(watcherName, watcherPath,
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << QString(watcherName) << QStringLiteral("IsStatusNotifierHostRegistered");
    // Nobody is started for the sake of this question.
    call.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(
        answer, &QDBusPendingCallWatcher::finished, this, [this, answer, question = ++question_] {
            const QDBusPendingReply<QDBusVariant> reply = *answer;
            answer->deleteLater();
            if (question == question_)
                setNotifierHost(reply.isValid() && reply.value().variant().toBool());
        });
}

void TrayWatch::loseHost()
{
    // An answer on its way is about the host that was.
    ++question_;
    setNotifierHost(false);
}

void TrayWatch::setNotifierHost(bool there)
{
    if (notifierHost_ == there)
        return;
    notifierHost_ = there;
    Q_EMIT changed();
}

xcb_window_t TrayWatch::embeddingTray() const
{
    return display_ ? display_->selectionOwner(selection_)
                    : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

void TrayWatch::followEmbeddingTray()
{
    const auto owner = embeddingTray();
    if (owner == XCB_WINDOW_NONE)
        return;
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(display_->connection(), owner, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(display_->connection());
}

bool TrayWatch::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/)
{
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const auto kind = event->response_type & 0x7F;
    bool mayMatter = kind == XCB_DESTROY_NOTIFY;
    if (kind == XCB_CLIENT_MESSAGE) {
        const auto* client = reinterpret_cast<const xcb_client_message_event_t*>(event);
        mayMatter = client->type == managerAtom_ && client->data.data32[1] == selectionAtom_;
    }
    if (mayMatter)
        // Later: Qt's own answer to this event comes first.
        QMetaObject::invokeMethod(
            this,
            [this] {
                followEmbeddingTray();
                Q_EMIT changed();
            },
            Qt::QueuedConnection);
    return false;
}

} // namespace platform
