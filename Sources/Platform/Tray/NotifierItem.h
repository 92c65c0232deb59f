// A tray item over the bus ("org.kde.StatusNotifierItem").
#pragma once

#include "BusStructure.h"
#include "NotifierMenu.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QPoint>

#include <functional>
#include <memory>

namespace platform {

/// One size of an icon, ARGB in network byte order: (iiay).
struct NotifierPixmap {
    int width = 0;
    int height = 0;
    QByteArray argb;

    static auto members()
    {
        return std::tuple(&NotifierPixmap::width, &NotifierPixmap::height, &NotifierPixmap::argb);
    }
};

/// (sa(iiay)ss)
struct NotifierToolTip {
    QString iconName;
    QList<NotifierPixmap> icon;
    QString title;
    QString text;

    static auto members()
    {
        return std::tuple(&NotifierToolTip::iconName, &NotifierToolTip::icon,
            &NotifierToolTip::title, &NotifierToolTip::text);
    }
};

/// The item on the session bus for as long as the object lives. Qt has such an item too, but it
/// chooses between the kinds of tray once a process; this one comes and goes with the tray.
class NotifierItem : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ id CONSTANT)
    Q_PROPERTY(QString Title READ title CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowId CONSTANT)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)
    Q_PROPERTY(QString IconThemePath READ none CONSTANT)
    Q_PROPERTY(QString IconName READ iconName CONSTANT)
    Q_PROPERTY(QList<platform::NotifierPixmap> IconPixmap READ iconPixmap NOTIFY NewIcon)
    Q_PROPERTY(QString OverlayIconName READ none CONSTANT)
    Q_PROPERTY(QList<platform::NotifierPixmap> OverlayIconPixmap READ noPixmap CONSTANT)
    Q_PROPERTY(QString AttentionIconName READ none CONSTANT)
    Q_PROPERTY(QList<platform::NotifierPixmap> AttentionIconPixmap READ noPixmap CONSTANT)
    Q_PROPERTY(QString AttentionMovieName READ none CONSTANT)
    Q_PROPERTY(platform::NotifierToolTip ToolTip READ toolTip CONSTANT)

public:
    struct Handlers {
        /// Where the tray says that the click was, in its own coordinates; null where it does not.
        std::function<void(QPoint)> activated;
        std::function<void()> middleClicked;
        std::function<void(QPoint)> menuWanted;
    };

    /// `iconName` may be empty; then only the pixmaps of `setIcon` are offered.
    NotifierItem(const StatusItem::Content& content, QString iconName, Handlers handlers);
    ~NotifierItem() override;

    void setIcon(const QList<QPixmap>& sizes);
    /// Tells the watcher that the item is there; again after a new watcher has come.
    void announce();

    [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
    [[nodiscard]] QString id() const { return id_; }
    [[nodiscard]] QString title() const { return title_; }
    [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
    [[nodiscard]] int windowId() const { return 0; }
    [[nodiscard]] bool itemIsMenu() const { return false; }
    [[nodiscard]] QDBusObjectPath menu() const;
    [[nodiscard]] QString iconName() const { return iconName_; }
    [[nodiscard]] QList<NotifierPixmap> iconPixmap() const { return icon_; }
    [[nodiscard]] QString none() const { return {}; }
    [[nodiscard]] QList<NotifierPixmap> noPixmap() const { return {}; }
    [[nodiscard]] NotifierToolTip toolTip() const { return { {}, {}, title_, {} }; }

public Q_SLOTS:
    void Activate(int x, int y) const;
    void SecondaryActivate(int x, int y) const;
    void ContextMenu(int x, int y) const;
    void Scroll(int delta, const QString& orientation);
    void ProvideXdgActivationToken(const QString& token);

Q_SIGNALS:
    void NewIcon();

private:
    QString id_;
    QString title_;
    QString iconName_;
    QList<NotifierPixmap> icon_;
    Handlers handlers_;
    NotifierMenu menu_;
    /// Of the item alone, so that the tray sees it go when the object goes.
    QDBusConnection bus_;
};

} // namespace platform

Q_DECLARE_METATYPE(platform::NotifierPixmap)
Q_DECLARE_METATYPE(platform::NotifierToolTip)
