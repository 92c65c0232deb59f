// The settings portal on a private bus: run under dbus-run-session.
#include "DesktopSettings.h"

#include <gtest/gtest.h>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QTest>

namespace platform {
namespace {

const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto schemeKey = QStringLiteral("color-scheme");
const auto appearance = QStringLiteral("org.freedesktop.appearance");

/// Answers when it is told to, as a portal that is still starting does.
class FakePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    void answer(const SettingGroups& groups)
    {
        bus_.send(call_.createReply(QVariant::fromValue(groups)));
    }
    void answerWithNonsense() { bus_.send(call_.createReply(QStringLiteral("?"))); }
    [[nodiscard]] bool wasAsked() const { return call_.type() == QDBusMessage::MethodCallMessage; }
    [[nodiscard]] QStringList askedGroups() const { return asked_; }

    Q_SLOT void ReadAll(const QStringList& groups)
    {
        asked_ = groups;
        call_ = message();
        setDelayedReply(true);
    }

    Q_SIGNAL void SettingChanged(
        const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection bus_ = QDBusConnection(QStringLiteral("portal"));
    QDBusMessage call_;
    QStringList asked_;
};

class DesktopSettingsTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { qDBusRegisterMetaType<SettingGroups>(); }

    void SetUp() override
    {
        auto bus
            = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));
        ASSERT_TRUE(bus.isConnected()) << "needs a private session bus";
        portal_ = std::make_unique<FakePortal>();
        ASSERT_TRUE(bus.registerObject(path, portal_.get(),
            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        ASSERT_TRUE(bus.registerService(service));
        QObject::connect(&settings_, &DesktopSettings::changed, [this] { ++changes_; });
    }
    void TearDown() override
    {
        portal_.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
    }

    bool waitForQuestion()
    {
        return QTest::qWaitFor([this] { return portal_->wasAsked(); });
    }
    bool waitForChanges(int count)
    {
        return QTest::qWaitFor([this, count] { return changes_ == count; });
    }

    std::unique_ptr<FakePortal> portal_;
    DesktopSettings settings_;
    int changes_ = 0;
};

TEST_F(DesktopSettingsTest, ReadsOnceAndFollowsEveryChange)
{
    settings_.start();
    ASSERT_TRUE(waitForQuestion());
    EXPECT_TRUE(portal_->askedGroups().contains(appearance));
    portal_->answer({ { appearance, { { schemeKey, 1U } } },
        { QStringLiteral("org.gnome.desktop.interface"),
            { { QStringLiteral("enable-animations"), false } } } });
    ASSERT_TRUE(waitForChanges(1));
    EXPECT_EQ(settings_.preferences(), (DesktopPreferences { Appearance::dark, true }));
    Q_EMIT portal_->SettingChanged(appearance, schemeKey, QDBusVariant(2U));
    ASSERT_TRUE(waitForChanges(2));
    EXPECT_EQ(settings_.preferences(), (DesktopPreferences { Appearance::light, true }));
}

TEST_F(DesktopSettingsTest, KeepsAChangeThatOvertakesTheFirstAnswer)
{
    settings_.start();
    ASSERT_TRUE(waitForQuestion());
    Q_EMIT portal_->SettingChanged(appearance, schemeKey, QDBusVariant(1U));
    ASSERT_TRUE(waitForChanges(1));
    portal_->answer({ { QStringLiteral("org.gnome.desktop.interface"),
                          { { QStringLiteral("enable-animations"), false } } },
        { appearance, { { schemeKey, 2U } } } });
    ASSERT_TRUE(waitForChanges(2));
    EXPECT_EQ(settings_.preferences(), (DesktopPreferences { Appearance::dark, true }));
}

TEST_F(DesktopSettingsTest, HasNoWishesWhenTheAnswerIsNotOne)
{
    settings_.start();
    ASSERT_TRUE(waitForQuestion());
    portal_->answerWithNonsense();
    Q_EMIT portal_->SettingChanged(appearance, QStringLiteral("contrast"), QDBusVariant(1U));
    Q_EMIT portal_->SettingChanged(appearance, schemeKey, QDBusVariant(1U));
    ASSERT_TRUE(waitForChanges(1));
    EXPECT_EQ(settings_.preferences(), (DesktopPreferences { Appearance::dark, {} }));
}

TEST(DesktopSettings, PreferencesAreReadFromEveryDesktopsSettings)
{
    constexpr auto common = "org.freedesktop.appearance";
    constexpr auto gnome = "org.gnome.desktop.interface";
    constexpr auto windows = "org.gnome.desktop.wm.preferences";
    constexpr auto kde = "org.kde.kdeglobals.KDE";
    const struct {
        const char* group;
        const char* key;
        QVariant value;
        DesktopPreferences expected;
    } rows[] = {
        { common, "color-scheme", 0U, {} },
        { common, "color-scheme", 1U, { Appearance::dark, {} } },
        { common, "color-scheme", 2U, { Appearance::light, {} } },
        { common, "color-scheme", 7U, {} },
        { common, "reduced-motion", 1U, { {}, true } },
        { common, "reduced-motion", 0U, {} },
        { gnome, "enable-animations", false, { {}, true } },
        { gnome, "enable-animations", true, { {}, false } },
        { windows, "button-layout", QStringLiteral("menu:minimize,close"), { {}, {}, true } },
        { windows, "button-layout", QStringLiteral("appmenu:close"), {} },
        { kde, "AnimationDurationFactor", QStringLiteral("0"), { {}, true } },
        { kde, "AnimationDurationFactor", 0.5, { {}, false } },
        { kde, "AnimationDurationFactor", QStringLiteral("x"), {} },
    };
    for (const auto& row : rows) {
        const SettingGroups groups { { QString::fromLatin1(row.group),
            { { QString::fromLatin1(row.key), row.value } } } };
        EXPECT_EQ(preferencesIn(groups), row.expected)
            << row.key << " " << row.value.toString().toStdString();
    }
}

} // namespace
} // namespace platform

#include "DesktopSettingsTest.moc"
