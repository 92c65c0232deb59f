#include "PortalColorSampler.h"

#include "WindowsAside.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QRandomGenerator>
#include <QTimer>
#include <QVariantMap>

#include <cmath>
#include <optional>
#include <utility>

namespace platform {

namespace {

constexpr QLatin1String service("org.freedesktop.portal.Desktop");
constexpr QLatin1String desktopPath("/org/freedesktop/portal/desktop");
constexpr QLatin1String screenshot("org.freedesktop.portal.Screenshot");
constexpr QLatin1String requestInterface("org.freedesktop.portal.Request");

/// The colour of a portal's answer; nothing when it is not three finite numbers.
std::optional<Color> colorIn(const QVariantMap& results)
{
    const QVariant value = results.value(QStringLiteral("color"));
    if (value.userType() != qMetaTypeId<QDBusArgument>())
        return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("(ddd)"))
        return std::nullopt;
    Color color;
    argument.beginStructure();
    argument >> color.red >> color.green >> color.blue;
    argument.endStructure();
    if (!std::isfinite(color.red) || !std::isfinite(color.green) || !std::isfinite(color.blue))
        return std::nullopt;
    return color;
}

} // namespace

/// One request to the portal. Answers once, then deletes itself; a dropped one stays until the
/// portal has been told.
class PortalRequest final : public QObject {
    Q_OBJECT

public:
    PortalRequest(std::function<void()> impossible, std::chrono::milliseconds timeLimit,
        ColorSampler::SelectionHandler handler)
        : QObject(QCoreApplication::instance())
        , impossible_(std::move(impossible))
        , handler_(std::move(handler))
        , bus_(QDBusConnection::sessionBus())
        , gone_(service, bus_, QDBusServiceWatcher::WatchForUnregistration)
    {
        connect(&gone_, &QDBusServiceWatcher::serviceUnregistered, this, &PortalRequest::failed);
        bus_.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
            QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
            SLOT(failed()));
        limit_.setSingleShot(true);
        connect(&limit_, &QTimer::timeout, this, &PortalRequest::expired);
        limit_.start(timeLimit);
        call();
    }

    /// Nobody wants the answer any more: closes the request as soon as its handle is known.
    void drop()
    {
        if (!std::exchange(handler_, nullptr))
            return;
        limit_.stop();
        aside_.reset();
        if (!calling_)
            close();
    }

private:
    Q_SLOT void responded(uint code, const QVariantMap& results)
    {
        constexpr uint done = 0;
        end(code == done ? colorIn(results) : std::nullopt);
    }

    Q_SLOT void failed() { end(std::nullopt); }

    void call()
    {
        const auto token = QStringLiteral("pick%1").arg(
            QRandomGenerator::system()->generate64(), 16, 16, QLatin1Char('0'));
        const auto sender = bus_.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
        // The path is known beforehand, so that not even the fastest answer can be missed.
        listen(desktopPath + QStringLiteral("/request/%1/%2").arg(sender, token));
        auto message = QDBusMessage::createMethodCall(
            service, desktopPath, screenshot, QStringLiteral("PickColor"));
        message << QString() << QVariantMap { { QStringLiteral("handle_token"), token } };
        const auto pending = bus_.asyncCall(message, limit_.interval());
        connect(new QDBusPendingCallWatcher(pending, this), &QDBusPendingCallWatcher::finished,
            this, &PortalRequest::called);
    }

    void called(QDBusPendingCallWatcher* watcher)
    {
        calling_ = false;
        const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError()) {
            if (handler_)
                impossible_();
            end(std::nullopt);
        } else {
            listen(reply.value().path());
            // Not before it is sure that there is a pick.
            if (handler_)
                aside_.emplace();
            else
                close();
        }
    }

    /// Portals of old chose the handle themselves and told it only in their reply.
    void listen(const QString& handle)
    {
        if (handle == handle_)
            return;
        const auto* slot = SLOT(responded(uint, QVariantMap));
        const auto signal = QStringLiteral("Response");
        if (!handle_.isEmpty())
            bus_.disconnect(service, handle_, requestInterface, signal, this, slot);
        handle_ = handle;
        bus_.connect(service, handle_, requestInterface, signal, this, slot);
    }

    void expired()
    {
        const auto handler = handler_;
        drop();
        if (handler)
            handler(std::nullopt);
    }

    void close()
    {
        bus_.send(QDBusMessage::createMethodCall(
            service, handle_, requestInterface, QStringLiteral("Close")));
        deleteLater();
    }

    void end(const std::optional<Color>& color)
    {
        limit_.stop();
        aside_.reset();
        deleteLater();
        if (const auto handler = std::exchange(handler_, nullptr))
            handler(color);
    }

    std::function<void()> impossible_;
    ColorSampler::SelectionHandler handler_;
    QDBusConnection bus_;
    QDBusServiceWatcher gone_;
    QTimer limit_;
    QString handle_;
    std::optional<WindowsAside> aside_;
    bool calling_ = true;
};

PortalColorSampler::PortalColorSampler(
    std::function<void()> impossible, std::chrono::milliseconds timeLimit)
    : impossible_(std::move(impossible))
    , timeLimit_(timeLimit)
{
}

PortalColorSampler::~PortalColorSampler()
{
    if (request_)
        request_->drop();
}

void PortalColorSampler::show(SelectionHandler handler)
{
    if (QDBusConnection::sessionBus().isConnected()) {
        request_ = new PortalRequest(impossible_, timeLimit_, std::move(handler));
        return;
    }
    impossible_();
    handler(std::nullopt);
}

} // namespace platform

#include "PortalColorSampler.moc"
