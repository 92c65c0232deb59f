#include "NotifierItem.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QImage>
#include <QtEndian>

namespace platform {

namespace {

constexpr QLatin1String itemPath("/StatusNotifierItem");
constexpr QLatin1String menuPath("/MenuBar");
constexpr QLatin1String connectionName("status-item");

NotifierPixmap toNotifierPixmap(const QPixmap& pixmap)
{
    const auto image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    const qsizetype rowBytes = qsizetype { image.width() } * 4;
    NotifierPixmap result { image.width(), image.height(),
        QByteArray(rowBytes * image.height(), Qt::Uninitialized) };
    auto* out = result.argb.data();
    for (int y = 0; y < image.height(); ++y, out += rowBytes)
        qToBigEndian<quint32>(image.constScanLine(y), image.width(), out);
    return result;
}

} // namespace

NotifierItem::NotifierItem(const StatusItem::Content& content, QString iconName, Handlers handlers)
    : id_(QString::fromStdString(content.id))
    , title_(QString::fromStdString(content.title))
    , iconName_(std::move(iconName))
    , handlers_(std::move(handlers))
    , menu_(content.menu)
    , bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName))
{
    qDBusRegisterMetaType<NotifierPixmap>();
    qDBusRegisterMetaType<QList<NotifierPixmap>>();
    qDBusRegisterMetaType<NotifierToolTip>();
    bus_.registerObject(menuPath, &menu_, QDBusConnection::ExportAllContents);
    bus_.registerObject(itemPath, this, QDBusConnection::ExportAllContents);
}

NotifierItem::~NotifierItem()
{
    QDBusConnection::disconnectFromBus(connectionName);
}

QDBusObjectPath NotifierItem::menu() const
{
    return QDBusObjectPath(QString(menuPath));
}

void NotifierItem::setIcon(const QList<QPixmap>& sizes)
{
    icon_.clear();
    for (const auto& pixmap : sizes)
        icon_.append(toNotifierPixmap(pixmap));
    Q_EMIT NewIcon();
}

void NotifierItem::announce()
{
    const auto watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
    auto call = QDBusMessage::createMethodCall(watcher, QStringLiteral("/StatusNotifierWatcher"),
        watcher, QStringLiteral("RegisterStatusNotifierItem"));
    // Not a name of its own: the tray of GNOME watches such an item twice, and often loses it.
    call << bus_.baseService();
    bus_.send(call);
}

void NotifierItem::Activate(int x, int y) const
{
    handlers_.activated({ x, y });
}

void NotifierItem::SecondaryActivate(int /*x*/, int /*y*/) const
{
    handlers_.middleClicked();
}

void NotifierItem::ContextMenu(int x, int y) const
{
    handlers_.menuWanted({ x, y });
}

void NotifierItem::Scroll(int /*delta*/, const QString& /*orientation*/) { }

void NotifierItem::ProvideXdgActivationToken(const QString& token)
{
    // Qt's Wayland plugin takes it from there when a window asks for the focus next.
    qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

} // namespace platform
