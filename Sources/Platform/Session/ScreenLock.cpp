#include "ScreenLock.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <utility>

namespace platform {

ScreenLock::ScreenLock()
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    for (const auto& [name, path] :
        { std::pair("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver"),
            std::pair("org.gnome.ScreenSaver", "/org/gnome/ScreenSaver") }) {
        const auto service = QString::fromLatin1(name);
        bus.connect(QString(), QString(), service, QStringLiteral("ActiveChanged"), this,
            SLOT(setLocked(bool)));
        auto question = QDBusMessage::createMethodCall(
            service, QString::fromLatin1(path), service, QStringLiteral("GetActive"));
        // Nobody is started for the sake of this question.
        question.setAutoStartService(false);
        bus.callWithCallback(question, this, SLOT(setLocked(bool)));
    }
}

void ScreenLock::setLocked(bool isLocked)
{
    if (std::exchange(isLocked_, isLocked) && !isLocked)
        Q_EMIT unlocked();
}

} // namespace platform
