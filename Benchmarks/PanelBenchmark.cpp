// How long the panel takes to follow its model, in its own process and on the real display.
#include "ModelAndView.h"
#include "PaletteGenerator.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int paletteCount = 10'000;
constexpr int changes = 40;

/// Sees when the window has been told to paint.
class PaintWatch : public QObject {
public:
    /// The toolkit asks the window or the widget in it, whichever it can.
    explicit PaintWatch(QWidget& window)
    {
        window.installEventFilter(this);
        window.windowHandle()->installEventFilter(this);
    }

    /// Runs `change` and the event loop until the next painting is done.
    double measure(const std::function<void()>& change)
    {
        painted_ = false;
        const auto start = Clock::now();
        change();
        while (!painted_)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return Milliseconds(Clock::now() - start).count();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        painted_ = painted_ || event->type() == QEvent::UpdateRequest;
        return QObject::eventFilter(watched, event);
    }

private:
    bool painted_ = false;
};

void report(const char* what, std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    std::printf(
        "%-44s %8.2f ms median %8.2f ms worst\n", what, times[times.size() / 2], times.back());
}

/// Until nothing moves any more.
void settle()
{
    const auto end = Clock::now() + std::chrono::milliseconds(700);
    while (Clock::now() < end)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

void fillLibrary()
{
    const tintwell::PaletteGenerator generator;
    std::vector<tintwell::SavedPalette> palettes;
    for (int index = 0; index < paletteCount; ++index) {
        const auto source = tintwell::RGBAColor(index % 97 / 97.0, index % 89 / 89.0, 0.6, 1);
        const auto palette = generator.generate(source);
        palettes.push_back(
            { platform::Uuid::random(), palette.sourceName, {}, source, palette.exportColors() });
    }
    tintwell::PalettePersistence store(tintwell::PalettePersistence::defaultURL());
    if (!store.save(palettes))
        std::exit(1);
}

void measureChanges(tintwell::TintwellModel& model, PaintWatch& watch)
{
    std::vector<double> first;
    for (int index = 0; index < changes; ++index) {
        const tintwell::RGBAColor color(index * 7 % 40 / 40.0, 0.3, 0.8 - index / 80.0, 1);
        first.push_back(watch.measure([&] { model.apply(color); }));
        settle();
    }
    report("source change to repainted panel", first);
}

void measureSaved(tintwell::TintwellModel& model, PaintWatch& watch, QWidget& view)
{
    report("opening Saved with 10,000 palettes",
        { watch.measure([&] { model.setSelectedTab(tintwell::WorkspaceTab::saved); }) });
    settle();
    QScrollBar* bar = nullptr;
    for (auto* area : view.findChildren<QScrollArea*>())
        if (area->isVisible()
            && (bar == nullptr || area->verticalScrollBar()->maximum() > bar->maximum()))
            bar = area->verticalScrollBar();
    std::vector<double> scrolls;
    for (int index = 1; index <= 200; ++index)
        scrolls.push_back(watch.measure([&] { bar->setValue(index * 997); }));
    report("scrolling there, a frame of all new rows", scrolls);
}

} // namespace

int main(int argc, char* argv[])
{
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    qputenv("HOME", home.path().toUtf8());
    const QApplication application(argc, argv);
    fillLibrary();
    tintwell::DesktopServices services;
    const auto start = Clock::now();
    auto content = tintwell::makeModelAndView(services);
    report("model and view over 10,000 palettes", { Milliseconds(Clock::now() - start).count() });
    content.view->show();
    settle();
    PaintWatch watch(*content.view);
    measureChanges(*content.model, watch);
    measureSaved(*content.model, watch, *content.view);
    delete content.view;
    return 0;
}
