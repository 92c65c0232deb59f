#include "GlobalShortcut.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QList>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr QLatin1String service("org.freedesktop.portal.Desktop");
constexpr QLatin1String desktopPath("/org/freedesktop/portal/desktop");
constexpr QLatin1String interfaceName("org.freedesktop.portal.GlobalShortcuts");

/// (sa{sv})
struct Shortcut {
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Shortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Shortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

QDBusMessage makeCall(const char* method)
{
    return QDBusMessage::createMethodCall(
        service, desktopPath, interfaceName, QString::fromLatin1(method));
}

} // namespace

} // namespace platform

Q_DECLARE_METATYPE(platform::Shortcut)

namespace platform {

/// One call whose outcome the portal tells by a signal. Deletes itself.
class GlobalShortcut::Request : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<void(bool succeeded, const QVariantMap& results)>;

    /// `options` are the call's last argument.
    Request(GlobalShortcut& owner, QDBusMessage call, QVariantMap options, Handler handler)
        : QObject(&owner)
        , handler_(std::move(handler))
    {
        auto bus = QDBusConnection::sessionBus();
        const auto token = QStringLiteral("shortcut_") + call.member();
        const auto sender = bus.baseService().mid(1).replace(u'.', u'_');
        bus.connect(service, desktopPath + QStringLiteral("/request/%1/%2").arg(sender, token),
            QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"), this,
            SLOT(responded(uint, QVariantMap)));
        options[QStringLiteral("handle_token")] = token;
        call << options;
        auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
            if (watcher->isError())
                deleteLater();
        });
    }

private:
    Q_SLOT void responded(uint code, const QVariantMap& results)
    {
        deleteLater();
        handler_(code == 0, results);
    }

    Handler handler_;
};

GlobalShortcut::GlobalShortcut(const Content& content, Events events)
    : program_(QString::fromStdString(content.program))
    , id_(QString::fromStdString(content.id))
    , description_(QString::fromStdString(content.description))
    , events_(std::move(events))
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    qDBusRegisterMetaType<Shortcut>();
    qDBusRegisterMetaType<QList<Shortcut>>();
    auto question = QDBusMessage::createMethodCall(service, desktopPath,
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << QString(interfaceName) << QStringLiteral("version");
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        if (!answer->isError())
            openSession();
    });
}

QVariant GlobalShortcut::actions() const
{
    return QVariant::fromValue(
        QList<Shortcut> { { id_, { { QStringLiteral("description"), description_ } } } });
}

void GlobalShortcut::openSession()
{
    // Plasma 5.27 takes actions here alone; others pass over what is not asked for.
    new Request(*this, makeCall("CreateSession"),
        { { QStringLiteral("session_handle_token"), program_ },
            { QStringLiteral("shortcuts"), actions() } },
        [this](bool succeeded, const QVariantMap& results) {
            session_ = results.value(QStringLiteral("session_handle")).toString();
            if (!succeeded || session_.isEmpty())
                return;
            QDBusConnection::sessionBus().connect(service, desktopPath, interfaceName,
                QStringLiteral("Activated"), this, SLOT(activated(QDBusObjectPath, QString)));
            lookForAction();
        });
}

/// Some desktops open their settings whenever an action is bound, known or not; Plasma 5.27 does so
/// at every start.
void GlobalShortcut::lookForAction()
{
    auto call = makeCall("ListShortcuts");
    call << QVariant::fromValue(QDBusObjectPath(session_));
    new Request(*this, call, {}, [this](bool /*succeeded*/, const QVariantMap& results) {
        const auto known = qdbus_cast<QList<Shortcut>>(results.value(QStringLiteral("shortcuts")));
        if (std::none_of(known.begin(), known.end(),
                [this](const Shortcut& shortcut) { return shortcut.id == id_; }))
            bindAction();
    });
}

void GlobalShortcut::bindAction()
{
    auto call = makeCall("BindShortcuts");
    call << QVariant::fromValue(QDBusObjectPath(session_)) << actions() << QString();
    new Request(*this, call, {}, [this](bool succeeded, const QVariantMap& /*results*/) {
        if (!succeeded)
            events_.declined();
    });
}

void GlobalShortcut::activated(const QDBusObjectPath& session, const QString& id)
{
    if (session.path() == session_ && id == id_)
        events_.pressed();
}

} // namespace platform

#include "GlobalShortcut.moc"
