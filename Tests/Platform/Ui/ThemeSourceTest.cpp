#include "ThemeSource.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QSignalSpy>
#include <QWidget>

namespace platform {
namespace {

class ThemeSourceTest : public ::testing::Test {
protected:
    void TearDown() override { source_.setDesktopPreferences({ Appearance::light, false }); }

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

TEST_F(ThemeSourceTest, ReducesMotionAsTheDesktopElseTheStyleSays)
{
    source_.setDesktopPreferences({ Appearance::dark, true });
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
