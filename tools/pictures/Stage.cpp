#include "Stage.h"

#include "DateText.h"
#include "MacColorIntegration.h"
#include "Motion.h"
#include "ScrollArea.h"
#include "ThemeSource.h"

#include <QCoreApplication>
#include <QScrollBar>

#include <chrono>

namespace tintwell {

namespace {

using namespace std::chrono_literals;

class NoPasteboard final : public platform::Pasteboard {
    void write(const platform::ColorContent&) override { }
    [[nodiscard]] platform::Result<platform::PastedContent> read() const override
    {
        return platform::PastedContent {};
    }
};

/// A pick that never ends.
class EndlessSampler final : public ScreenColorSampling {
    void sample(Completion completion) override { completion_ = std::move(completion); }
    Completion completion_;
};

std::filesystem::path pathOf(const QTemporaryDir& folder)
{
    return folder.path().toStdString();
}

} // namespace

Stage::Stage(const std::string& source, const std::vector<SavedPalette>& library)
    : pasteboard_(std::make_unique<NoPasteboard>())
    , installer_(std::make_unique<MacColorListInstaller>(lists(),
          platform::PalettePublisher({ pathOf(home_) / "config", pathOf(home_) / "data" })))
    , time_(platform::Timestamp(std::chrono::sys_days(2026y / 11 / 14)) + 18h + 30min)
    , model_(std::make_unique<TintwellModel>(*RGBAColor::fromHex(source), written(library),
          std::make_shared<EndlessSampler>(),
          ModelServices { *pasteboard_, *installer_, scheduler_,
              [this] { return std::exchange(time_, time_ + 62h + 17min); },
              platform::Uuid::random }))
{
    view_ = std::make_unique<TintwellView>(
        *model_, ViewActions { [] {}, [] {}, platform::DateText("en_US", "UTC") });
    view_->QWidget::show();
    view_->activateWindow();
    settle();
    // The ring of the keyboard focus is shown only by the pictures that are about it.
    if (auto* focused = view_->focusWidget()) {
        focused->clearFocus();
        focused->setFocus(Qt::MouseFocusReason);
        focused->clearFocus();
    }
}

platform::ColorListRegistry Stage::lists() const
{
    return platform::ColorListRegistry(pathOf(home_) / "Colors");
}

PalettePersistence Stage::written(const std::vector<SavedPalette>& library) const
{
    PalettePersistence persistence(pathOf(home_) / "library.json");
    if (!library.empty() && !persistence.save(library))
        qFatal("The library of a picture could not be written.");
    return persistence;
}

void Stage::settle()
{
    view_->showNow();
    settleWindows();
}

void Stage::focusSwatch()
{
    view_->findChild<CaptureHeader*>()->findChild<DraggableColorView*>()->setFocus(
        Qt::TabFocusReason);
    settle();
}

void Stage::scrollTo(int value)
{
    for (auto* area : view_->findChildren<platform::ScrollArea*>())
        area->verticalScrollBar()->setValue(value);
    settle();
}

QImage Stage::panel()
{
    settle();
    return view_->grab().toImage();
}

void settleWindows()
{
    QCoreApplication::processEvents();
    platform::MotionClock::instance().advance(2);
    QCoreApplication::processEvents();
}

QImage emptySheet(QSize size)
{
    QImage sheet(size * pictureScale, QImage::Format_RGB32);
    sheet.setDevicePixelRatio(pictureScale);
    sheet.fill(platform::currentTheme().windowBackground);
    return sheet;
}

void saveLibrary(TintwellModel& model)
{
    for (const auto* source : { "#E5484D", "#12A594", "#F2C14E", "#6E56CF" }) {
        model.apply(*RGBAColor::fromHex(source));
        model.saveAndInstallCurrent();
    }
    model.setSelectedTab(WorkspaceTab::saved);
}

} // namespace tintwell
