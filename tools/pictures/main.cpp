// Renders everything that Tintwell shows, light and dark, at twice the size.
// Usage: pictures FOLDER [NAME]...
#include "Motion.h"
#include "Stage.h"
#include "ThemeSource.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>

namespace {

std::vector<tintwell::Picture> allPictures()
{
    std::vector<tintwell::Picture> all;
    for (const auto& some :
        { tintwell::panelPictures(), tintwell::sheetPictures(), tintwell::desktopPictures() })
        all.insert(all.end(), some.begin(), some.end());
    return all;
}

bool save(const tintwell::Picture& picture, const QString& folder)
{
    using platform::Appearance;
    bool done = true;
    for (const auto appearance : { Appearance::light, Appearance::dark }) {
        platform::ThemeSource::instance().setDesktopPreferences({ appearance, {} });
        const auto* suffix = appearance == Appearance::light ? "-light.png" : "-dark.png";
        const auto file = folder + QLatin1Char('/') + QString::fromStdString(picture.name + suffix);
        if (!picture.draw().save(file)) {
            std::fprintf(stderr, "%s could not be written.\n", qPrintable(file));
            done = false;
        }
    }
    return done;
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_PLATFORMTHEME", "none");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(tintwell::pictureScale));
    const QApplication application(argc, argv);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty()) {
        std::fprintf(stderr, "Usage: pictures FOLDER [NAME]...\n");
        return 2;
    }
    QApplication::setFont(QFont(QStringLiteral("Inter")));
    platform::MotionClock::instance().holdTime();
    bool done = true;
    for (const auto& picture : allPictures())
        if (arguments.size() == 1
            || std::find(arguments.begin() + 1, arguments.end(), picture.name) != arguments.end())
            done = save(picture, QString::fromStdString(arguments[0])) && done;
    return done ? 0 : 1;
}
