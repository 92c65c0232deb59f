#include "DesktopSettings.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace platform {

namespace {

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interfaceName = QStringLiteral("org.freedesktop.portal.Settings");

const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const auto interfaceGroup = QStringLiteral("org.gnome.desktop.interface");
const auto windowsGroup = QStringLiteral("org.gnome.desktop.wm.preferences");
const auto globalsGroup = QStringLiteral("org.kde.kdeglobals.KDE");
const QStringList groupsOfInterest { appearanceGroup, interfaceGroup, windowsGroup, globalsGroup };

std::optional<Appearance> appearanceIn(const SettingGroups& groups)
{
    switch (groups[appearanceGroup][QStringLiteral("color-scheme")].toUInt()) {
    case 1:
        return Appearance::dark;
    case 2:
        return Appearance::light;
    default:
        return std::nullopt;
    }
}

std::optional<bool> reducedMotionIn(const SettingGroups& groups)
{
    if (groups[appearanceGroup][QStringLiteral("reduced-motion")].toUInt() == 1)
        return true;
    const auto enabled = groups[interfaceGroup][QStringLiteral("enable-animations")];
    if (enabled.isValid())
        return !enabled.toBool();
    auto isNumber = false;
    const auto factor
        = groups[globalsGroup][QStringLiteral("AnimationDurationFactor")].toDouble(&isNumber);
    return isNumber ? std::optional(factor <= 0) : std::nullopt;
}

/// The layout names the buttons to the left and to the right of a title, such as "menu:close".
bool minimizesIn(const SettingGroups& groups)
{
    return groups[windowsGroup][QStringLiteral("button-layout")].toString().contains(
        QLatin1String("minimize"));
}

} // namespace

DesktopPreferences preferencesIn(const SettingGroups& groups)
{
    return { appearanceIn(groups), reducedMotionIn(groups), minimizesIn(groups) };
}

void DesktopSettings::start()
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    // The slot is looked up by the names of its types, which the toolkit does not know by itself.
    qRegisterMetaType<QDBusVariant>();
    bus.connect(service, path, interfaceName, QStringLiteral("SettingChanged"), this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    auto message
        = QDBusMessage::createMethodCall(service, path, interfaceName, QStringLiteral("ReadAll"));
    message << groupsOfInterest;
    auto* call = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &DesktopSettings::readAnswer);
}

void DesktopSettings::readAnswer(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    const auto answer = call->reply();
    if (answer.type() != QDBusMessage::ReplyMessage
        || answer.signature() != QLatin1String("a{sa{sv}}"))
        return;
    SettingGroups groups;
    answer.arguments().constFirst().value<QDBusArgument>() >> groups;
    for (auto group = groups_.cbegin(); group != groups_.cend(); ++group)
        groups[group.key()].insert(group.value());
    groups_ = groups;
    update();
}

void DesktopSettings::settingChanged(
    const QString& group, const QString& key, const QDBusVariant& value)
{
    if (!groupsOfInterest.contains(group))
        return;
    groups_[group][key] = value.variant();
    update();
}

void DesktopSettings::update()
{
    const auto preferences = preferencesIn(groups_);
    if (preferences == preferences_)
        return;
    preferences_ = preferences;
    Q_EMIT changed();
}

} // namespace platform
