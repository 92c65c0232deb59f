#include "ThemeSource.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QSignalSpy>
#include <QWidget>

namespace platform {
namespace {

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

INSTANTIATE_TEST_SUITE_P(Theme, Preference,
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

class ThemeSourceTest : public ::testing::Test {
protected:
    void SetUp() override { source_.setAppearance({}); }
    void TearDown() override
    {
        source_.setDesktopPreferences({});
        source_.setAppearance(Appearance::light);
        source_.setReducesMotion(false);
    }

    ThemeSource& source_ = ThemeSource::instance();
};

TEST_F(ThemeSourceTest, RepaintsEveryWidgetOnTheNextTurnWhenTheDesktopTurnsDark)
{
    source_.setDesktopPreferences({ Appearance::light, {} });
    QWidget window;
    window.show();
    const QSignalSpy changed(&source_, &ThemeSource::changed);
    source_.setDesktopPreferences({ Appearance::dark, {} });
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(currentTheme().windowBackground, QColor(0x23, 0x23, 0x26));
    QApplication::processEvents();
    EXPECT_EQ(window.palette().color(QPalette::Window), QColor(0x23, 0x23, 0x26));
    source_.setDesktopPreferences({ Appearance::dark, {} });
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(ThemeSourceTest, PrefersAFixedChoice)
{
    source_.setAppearance(Appearance::light);
    source_.setDesktopPreferences({ Appearance::dark, true });
    EXPECT_EQ(source_.appearance(), Appearance::light);
    source_.setReducesMotion({});
    EXPECT_TRUE(source_.reducesMotion());
    source_.setDesktopPreferences({ Appearance::dark, {} });
    EXPECT_FALSE(source_.reducesMotion());
}

TEST_F(ThemeSourceTest, ReturnsToTheToolkitsPaletteWithoutAWish)
{
    source_.setDesktopPreferences({ Appearance::dark, {} });
    source_.setDesktopPreferences({});
    QEvent themeChange(QEvent::ThemeChange);
    QApplication::sendEvent(qApp, &themeChange);
    EXPECT_EQ(source_.appearance(), Appearance::light);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(0xF7, 0xF7, 0xF8));
}

TEST(Theme, HasTheNamedContrasts)
{
    const auto& light = themeOf(Appearance::light);
    EXPECT_EQ(composited(light.secondary, light.windowBackground).rgb(), qRgb(0x5B, 0x5B, 0x5D));
    const auto& dark = themeOf(Appearance::dark);
    EXPECT_EQ(composited(dark.controlFill, dark.windowBackground).rgb(), qRgb(0x34, 0x34, 0x37));
}

TEST(Blended, ClampsTheOvershootOfASpring)
{
    EXPECT_EQ(blended(QColor(0, 100, 250), QColor(200, 100, 255), 0.5).rgb(), qRgb(100, 100, 253));
    EXPECT_EQ(blended(QColor(0, 0, 0), QColor(255, 255, 255), 1.02), QColor(Qt::white));
    EXPECT_EQ(blended(QColor(10, 0, 0), QColor(255, 0, 0), -0.1), QColor(Qt::black));
}

} // namespace
} // namespace platform
