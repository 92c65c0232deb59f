// Renders the panel in the states that the documentation shows, light and dark, at twice the size.
// Usage: pictures FOLDER
#include "DateText.h"
#include "Fonts.h"
#include "MacColorIntegration.h"
#include "Motion.h"
#include "QtScheduler.h"
#include "ScrollArea.h"
#include "ThemeSource.h"
#include "TintwellView.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>

namespace tintwell {

namespace {

using namespace std::chrono_literals;

class NoPasteboard final : public platform::Pasteboard {
    void write(const platform::ColorContent&) override { }
};

/// A pick that never ends.
class EndlessSampler final : public ScreenColorSampling {
    void sample(Completion completion) override { completion_ = std::move(completion); }
    Completion completion_;
};

struct Picture {
    const char* name;
    platform::Appearance appearance;
    const char* source;
    std::function<void(TintwellModel&)> prepare;
    int scrolledTo = 0;
};

NamedColor colorWithID(const std::vector<NamedColor>& colors, const std::string& id)
{
    for (const auto& color : colors)
        if (color.id == id)
            return color;
    return colors.front();
}

void saveLibrary(TintwellModel& model)
{
    for (const auto* source : { "#E5484D", "#12A594", "#F2C14E", "#6E56CF" }) {
        model.apply(*RGBAColor::fromHex(source));
        model.saveAndInstallCurrent();
    }
    model.setSelectedTab(WorkspaceTab::saved);
}

void copyThemePrimary(TintwellModel& model)
{
    model.setSelectedTab(WorkspaceTab::themes);
    auto primary = colorWithID(model.generated().darkTheme.colors, "primary");
    primary.id = "dark.primary";
    model.copy(primary);
}

const std::vector<Picture>& pictures()
{
    using enum platform::Appearance;
    static const std::vector<Picture> all {
        { "panel-studio-light", light, "#6E56CF", [](TintwellModel&) {} },
        { "panel-studio-dark", dark, "#6E56CF",
            [](TintwellModel& model) {
                model.copy(model.generated().harmonySections[0].colors[1]);
            } },
        { "panel-themes-light", light, "#6E56CF",
            [](TintwellModel& model) { model.setSelectedTab(WorkspaceTab::themes); } },
        { "panel-themes-amber-dark", dark, "#F2C14E", copyThemePrimary, 10'000 },
        { "panel-saved-light", light, "#6E56CF", saveLibrary },
        { "panel-saved-dark", dark, "#6E56CF", saveLibrary },
        { "panel-saved-empty-light", light, "#6E56CF",
            [](TintwellModel& model) { model.setSelectedTab(WorkspaceTab::saved); } },
        { "panel-saved-near-black-dark", dark, "#0A0A0D",
            [](TintwellModel& model) {
                saveLibrary(model);
                model.apply(*RGBAColor::fromHex("#0A0A0D"));
                model.setSelectedTab(WorkspaceTab::saved);
            } },
        { "panel-sampling-light", light, "#6E56CF",
            [](TintwellModel& model) { model.beginSampling(); } },
        { "panel-near-white-light", light, "#F6F5F2",
            [](TintwellModel& model) { model.copySource(); } },
        { "panel-amber-light", light, "#F2C14E", [](TintwellModel& model) { model.copySource(); } },
        { "panel-tones-light", light, "#6E56CF", [](TintwellModel&) {}, 10'000 },
    };
    return all;
}

bool render(const Picture& picture, const QString& folder)
{
    const QTemporaryDir home;
    const std::filesystem::path root(home.path().toStdString());
    NoPasteboard pasteboard;
    MacColorListInstaller installer(platform::ColorListRegistry(root / "Colors"),
        platform::PalettePublisher({ root / "config", root / "data" }));
    platform::QtScheduler scheduler;
    auto day = platform::Timestamp(std::chrono::sys_days(2026y / 11 / 14)) + 18h + 30min;
    TintwellModel model(*RGBAColor::fromHex(picture.source),
        PalettePersistence(root / "library.json"), std::make_shared<EndlessSampler>(),
        { pasteboard, installer, scheduler, [&] { return day += 62h + 17min; },
            platform::Uuid::random });
    platform::ThemeSource::instance().setAppearance(picture.appearance);

    const auto dates = std::make_shared<platform::DateText>("en_US", "UTC");
    TintwellView view(
        model, { [] {}, [] {}, [dates](platform::Timestamp time) { return (*dates)(time); } });
    view.QWidget::show();
    picture.prepare(model);
    view.showNow();
    QCoreApplication::processEvents();
    if (picture.scrolledTo > 0)
        for (auto* area : view.findChildren<platform::ScrollArea*>())
            area->verticalScrollBar()->setValue(picture.scrolledTo);
    platform::MotionClock::instance().advance(2);
    QCoreApplication::processEvents();
    const auto file
        = folder + QLatin1Char('/') + QLatin1String(picture.name) + QLatin1String(".png");
    if (view.grab().save(file))
        return true;
    std::fprintf(stderr, "%s could not be written.\n", qPrintable(file));
    return false;
}

} // namespace

} // namespace tintwell

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_PLATFORMTHEME", "none");
    if (qEnvironmentVariableIsEmpty("QT_SCALE_FACTOR"))
        qputenv("QT_SCALE_FACTOR", "2");
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "Usage: pictures FOLDER\n");
        return 2;
    }
    platform::setInterfaceFamily(QStringLiteral("Inter"));
    platform::MotionClock::instance().holdTime();
    bool done = true;
    for (const auto& picture : tintwell::pictures())
        done = tintwell::render(picture, QString::fromLocal8Bit(argv[1])) && done;
    return done ? 0 : 1;
}
