#include "SingleInstance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QObject>
#include <QStringList>
#include <QThread>
#include <QVariantMap>

#include <algorithm>
#include <array>
#include <chrono>
#include <limits>

namespace platform {

namespace {

constexpr auto interfaceName = "org.freedesktop.Application";
/// After the application's name: the interface whose answers wait for the action's end.
constexpr QLatin1String actions(".Actions");
constexpr QLatin1String cancelled(".Cancelled");
constexpr QLatin1String impossible(".Impossible");
constexpr std::chrono::milliseconds answerTime { 5000 };
constexpr unsigned long turnMilliseconds = 10;
constexpr int untilTheEnd = std::numeric_limits<int>::max();

/// "/io/github/name/Application": the object path that belongs to an application's bus name.
QString objectPath(const QString& name)
{
    QString path = u'/' + name;
    return path.replace(u'.', u'/').replace(u'-', u'_');
}

QVariantMap platformData(const ActivationRequest& request)
{
    if (request.token.empty())
        return {};
    const auto token = QString::fromStdString(request.token);
    return { { QStringLiteral("activation-token"), token },
        { QStringLiteral("desktop-startup-id"), token } };
}

ActivationRequest makeRequest(const QString& action, const QVariantMap& platformData)
{
    const auto token = platformData.value(QStringLiteral("activation-token")).toString();
    return { action.toStdString(), token.toStdString() };
}

QDBusMessage makeCall(const QString& name, const ActivationRequest& request)
{
    auto call
        = QDBusMessage::createMethodCall(name, objectPath(name), QString::fromLatin1(interfaceName),
            request.action.empty() ? QStringLiteral("Activate") : QStringLiteral("ActivateAction"));
    if (!request.action.empty())
        call << QString::fromStdString(request.action) << QVariantList();
    call << platformData(request);
    return call;
}

/// What a call gets whose receiver has ended, or ends just now.
bool meansGone(const QDBusMessage& answer)
{
    constexpr std::array errors { "ServiceUnknown", "NameHasNoOwner", "NoReply", "Timeout",
        "TimedOut", "Disconnected", "UnknownObject" };
    return std::any_of(errors.begin(), errors.end(), [&](const char* error) {
        return answer.errorName()
            == QLatin1String("org.freedesktop.DBus.Error.") + QLatin1String(error);
    });
}

} // namespace

ActivationRequest ActivationRequest::fromEnvironment(std::string action)
{
    auto token = qgetenv("XDG_ACTIVATION_TOKEN");
    if (token.isEmpty())
        token = qgetenv("DESKTOP_STARTUP_ID");
    return { std::move(action), token.toStdString() };
}

/// The object on the bus; its slots are the interface's methods.
class SingleInstance::Service : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit Service(const Handler& handler)
        : handler_(handler)
    {
    }

public Q_SLOTS:
    void Activate(const QVariantMap& platformData) { handle({}, platformData); }

    void ActivateAction(
        const QString& action, const QVariantList& /*parameter*/, const QVariantMap& platformData)
    {
        handle(action, platformData);
    }

    /// There is nothing to open; being asked to is still a wish to see the application.
    void Open(const QStringList& /*uris*/, const QVariantMap& platformData)
    {
        handle({}, platformData);
    }

private:
    void handle(const QString& action, const QVariantMap& platformData)
    {
        handler_(makeRequest(action, platformData), [](const ActionResult& /*result*/) {});
    }

    const Handler& handler_;
};

class SingleInstance::Actions : public QObject {
    Q_OBJECT

public:
    Actions(QString name, const Handler& handler)
        : name_(std::move(name))
        , handler_(handler)
    {
    }

public Q_SLOTS:
    QString Perform(
        const QString& action, const QVariantMap& platformData, const QDBusMessage& call)
    {
        call.setDelayedReply(true);
        handler_(
            makeRequest(action, platformData), [name = name_, call](const ActionResult& result) {
                QDBusConnection::sessionBus().send(reply(name, call, result));
            });
        return {};
    }

private:
    static QDBusMessage reply(
        const QString& name, const QDBusMessage& call, const ActionResult& result)
    {
        const auto text = QString::fromStdString(result.text);
        switch (result.kind) {
        case ActionResult::Kind::done:
            break;
        case ActionResult::Kind::cancelled:
            return call.createErrorReply(name + cancelled, text);
        case ActionResult::Kind::impossible:
            return call.createErrorReply(name + impossible, text);
        }
        return call.createReply(text);
    }

    QString name_;
    const Handler& handler_;
};

SingleInstance::SingleInstance(std::string applicationID, Handler handler)
    : applicationID_(std::move(applicationID))
    , handler_(std::move(handler))
    , service_(std::make_unique<Service>(handler_))
    , actions_(std::make_unique<Actions>(QString::fromStdString(applicationID_), handler_))
{
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Outcome SingleInstance::claim(const ActivationRequest& request)
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Outcome::first;
    const auto name = QString::fromStdString(applicationID_);
    // The objects first: whoever sees the name may call at once.
    bus.registerObject(objectPath(name), service_.get(), QDBusConnection::ExportAllSlots);
    bus.registerObject(objectPath(name + actions), name + actions, actions_.get(),
        QDBusConnection::ExportAllSlots);
    const QDeadlineTimer deadline(answerTime);
    do {
        if (bus.registerService(name))
            return Outcome::first;
        const auto answer = bus.call(makeCall(name, request), QDBus::Block,
            std::max(1, static_cast<int>(deadline.remainingTime())));
        if (answer.type() == QDBusMessage::ReplyMessage)
            return Outcome::handedOver;
        // The first process may end between our two questions, and another take its place.
        if (!meansGone(answer))
            return Outcome::unanswered;
        QThread::msleep(turnMilliseconds);
    } while (!deadline.hasExpired());
    return bus.registerService(name) ? Outcome::first : Outcome::unanswered;
}

void SingleInstance::release()
{
    auto bus = QDBusConnection::sessionBus();
    const auto name = QString::fromStdString(applicationID_);
    bus.unregisterService(name);
    // A call that is on its way is refused at once, rather than left waiting.
    bus.unregisterObject(objectPath(name + actions));
    bus.unregisterObject(objectPath(name));
}

std::optional<ActionResult> SingleInstance::perform(
    const std::string& applicationID, const ActivationRequest& request)
{
    using Kind = ActionResult::Kind;
    const auto name = QString::fromStdString(applicationID);
    auto call = QDBusMessage::createMethodCall(
        name, objectPath(name + actions), name + actions, QStringLiteral("Perform"));
    call << QString::fromStdString(request.action) << platformData(request);
    call.setAutoStartService(false);
    const auto answer = QDBusConnection::sessionBus().call(call, QDBus::Block, untilTheEnd);
    if (answer.type() == QDBusMessage::ReplyMessage)
        return ActionResult { Kind::done, answer.arguments().value(0).toString().toStdString() };
    if (meansGone(answer))
        return std::nullopt;
    return ActionResult { answer.errorName() == name + cancelled ? Kind::cancelled
                                                                 : Kind::impossible,
        answer.errorMessage().toStdString() };
}

} // namespace platform

#include "SingleInstance.moc"
