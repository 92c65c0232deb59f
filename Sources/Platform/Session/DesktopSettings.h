// The desktop's wishes about appearance and motion, asked from its settings portal.
#pragma once

#include "ThemeSource.h"

#include <QMap>
#include <QObject>
#include <QVariantMap>

class QDBusPendingCallWatcher;
class QDBusVariant;

namespace platform {

/// Settings by group and key, as the portal hands them out.
using SettingGroups = QMap<QString, QVariantMap>;

/// Reads the wishes from settings: the cross-desktop groups first, then those of single desktops.
[[nodiscard]] DesktopPreferences preferencesIn(const SettingGroups& groups);

/// Follows the settings portal on the session bus. Without a bus, a portal or an answer there are
/// simply no wishes.
class DesktopSettings : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Asks for everything at once and listens for changes; returns immediately.
    void start();

    [[nodiscard]] const DesktopPreferences& preferences() const { return preferences_; }

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

Q_SIGNALS:
    void changed();

private:
    void readAnswer(QDBusPendingCallWatcher* call);
    void update();

    SettingGroups groups_;
    DesktopPreferences preferences_;
};

} // namespace platform
