// A key of the whole desktop, set by the user in the desktop's own settings.
#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>
#include <string>

class QDBusMessage;
class QDBusObjectPath;

namespace platform {

/// Offers one action to the portal "org.freedesktop.portal.GlobalShortcuts" and listens for its
/// key. Without that portal nothing happens. Never waits for the bus.
class GlobalShortcut : public QObject {
    Q_OBJECT
public:
    struct Content {
        /// Always the same: desktops keep the key of a program that they do not know under this.
        std::string program;
        std::string id;
        /// What the desktop's settings call the action.
        std::string description;
    };
    struct Events {
        std::function<void()> pressed;
        /// The user was asked, and does not want a key.
        std::function<void()> declined;
    };

    /// Offers it at once. The desktop may ask the user for the key, the first time.
    GlobalShortcut(const Content& content, Events events);

private Q_SLOTS:
    void activated(const QDBusObjectPath& session, const QString& id);

private:
    class Request;

    /// The one action, as the portal's list.
    [[nodiscard]] QVariant actions() const;
    void openSession();
    void lookForAction();
    void bindAction();

    QString program_;
    QString id_;
    QString description_;
    Events events_;
    QString session_;
};

} // namespace platform
