#include "SingleInstance.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace platform {

namespace {

constexpr auto interfaceName = "org.freedesktop.Application";
constexpr int answerMilliseconds = 5000;

/// "/io/github/name/Application": the object path that belongs to an application's bus name.
QString objectPath(const QString& name)
{
    QString path = u'/' + name;
    return path.replace(u'.', u'/').replace(u'-', u'_');
}

QDBusMessage makeCall(const QString& name, const ActivationRequest& request)
{
    auto call
        = QDBusMessage::createMethodCall(name, objectPath(name), QString::fromLatin1(interfaceName),
            request.action.empty() ? QStringLiteral("Activate") : QStringLiteral("ActivateAction"));
    QVariantMap platformData;
    if (!request.token.empty()) {
        const auto token = QString::fromStdString(request.token);
        platformData[QStringLiteral("activation-token")] = token;
        platformData[QStringLiteral("desktop-startup-id")] = token;
    }
    if (!request.action.empty())
        call << QString::fromStdString(request.action) << QVariantList();
    call << platformData;
    return call;
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
    explicit Service(Handler handler)
        : handler_(std::move(handler))
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
        const auto token = platformData.value(QStringLiteral("activation-token")).toString();
        handler_({ action.toStdString(), token.toStdString() });
    }

    Handler handler_;
};

SingleInstance::SingleInstance(std::string applicationID, Handler handler)
    : applicationID_(std::move(applicationID))
    , service_(std::make_unique<Service>(std::move(handler)))
{
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Outcome SingleInstance::claim(const ActivationRequest& request)
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Outcome::first;
    const auto name = QString::fromStdString(applicationID_);
    // The object first: whoever sees the name may call at once.
    bus.registerObject(objectPath(name), service_.get(), QDBusConnection::ExportAllSlots);
    // The second turn is for a first process that ends between our two questions.
    for (int turn = 0; turn < 2; ++turn) {
        if (bus.registerService(name))
            return Outcome::first;
        const auto answer = bus.call(makeCall(name, request), QDBus::Block, answerMilliseconds);
        if (answer.type() == QDBusMessage::ReplyMessage)
            return Outcome::handedOver;
        if (QDBusError(answer).type() != QDBusError::ServiceUnknown)
            return Outcome::unanswered;
    }
    return Outcome::unanswered;
}

} // namespace platform

#include "SingleInstance.moc"
