// The settings portal on a private bus: run under dbus-run-session.
#include "DesktopSettings.h"

#include <gtest/gtest.h>
#include <QApplication>
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

TEST_F(DesktopSettingsTest, TurnsTheWholeApplicationDark)
{
    auto& source = ThemeSource::instance();
    source.setAppearance({});
    QObject::connect(&settings_, &DesktopSettings::changed, &source,
        [this, &source] { source.setDesktopPreferences(settings_.preferences()); });
    settings_.start();
    ASSERT_TRUE(waitForQuestion());
    EXPECT_EQ(source.appearance(), Appearance::light);
    portal_->answer({ { appearance, { { schemeKey, 1U } } } });
    EXPECT_TRUE(QTest::qWaitFor([&source] { return source.appearance() == Appearance::dark; }));
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(0x23, 0x23, 0x26));
}

struct PreferenceCase {
    const char* name;
    const char* group;
    const char* key;
    QVariant value;
    DesktopPreferences expected;
};

void PrintTo(const PreferenceCase& test, std::ostream* out)
{
    *out << test.name;
}

class Preference : public ::testing::TestWithParam<PreferenceCase> { };

TEST_P(Preference, IsReadFromTheDesktopsSettings)
{
    const auto& test = GetParam();
    const SettingGroups groups { { QString::fromLatin1(test.group),
        { { QString::fromLatin1(test.key), test.value } } } };
    EXPECT_EQ(preferencesIn(groups), test.expected);
}

constexpr auto common = "org.freedesktop.appearance";
constexpr auto gnome = "org.gnome.desktop.interface";
constexpr auto kde = "org.kde.kdeglobals.KDE";

INSTANTIATE_TEST_SUITE_P(Session, Preference,
    ::testing::Values(PreferenceCase { "no_preference", common, "color-scheme", 0U, {} },
        PreferenceCase { "dark", common, "color-scheme", 1U, { Appearance::dark, {} } },
        PreferenceCase { "light", common, "color-scheme", 2U, { Appearance::light, {} } },
        PreferenceCase { "unknown_scheme", common, "color-scheme", 7U, {} },
        PreferenceCase { "reduced_motion", common, "reduced-motion", 1U, { {}, true } },
        PreferenceCase { "motion_not_reduced", common, "reduced-motion", 0U, {} },
        PreferenceCase { "animations_off", gnome, "enable-animations", false, { {}, true } },
        PreferenceCase { "animations_on", gnome, "enable-animations", true, { {}, false } },
        PreferenceCase { "factor_zero_as_text", kde, "AnimationDurationFactor", QStringLiteral("0"),
            { {}, true } },
        PreferenceCase { "factor", kde, "AnimationDurationFactor", 0.5, { {}, false } },
        PreferenceCase {
            "factor_that_is_no_number", kde, "AnimationDurationFactor", QStringLiteral("x"), {} }),
    [](const auto& test) { return test.param.name; });

} // namespace
} // namespace platform

#include "DesktopSettingsTest.moc"
