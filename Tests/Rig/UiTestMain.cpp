// Runs the tests of widgets: one application object, no display, a theme that does not depend on
// the machine.
#include "ThemeSource.h"

#include <gtest/gtest.h>
#include <QApplication>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_PLATFORMTHEME", "none");
    qunsetenv("QT_SCALE_FACTOR");
    const QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    platform::ThemeSource::instance().setDesktopPreferences({ platform::Appearance::light, false });
    return RUN_ALL_TESTS();
}
