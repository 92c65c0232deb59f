#include "MainPanel.h"

#include "CaptureHeader.h"
#include "ColorDrag.h"

#include <QApplication>

#include <utility>

namespace tintwell {

MainPanel::MainPanel(DesktopServices& services, Events events)
    : services_(services)
    , events_(std::move(events))
{
}

TintwellModel& MainPanel::model()
{
    return *content().model;
}

ModelAndView& MainPanel::content()
{
    if (!content_) {
        content_ = makeModelAndView(services_);
        picks_ = content_->model->observe([this] {
            // The model announces a change before it makes it.
            QMetaObject::invokeMethod(
                qApp, [this] { followPicks(); }, Qt::QueuedConnection);
        });
    }
    return *content_;
}

void MainPanel::followPicks()
{
    const bool isSampling = model().isSampling();
    if (std::exchange(wasSampling_, isSampling) && !isSampling)
        events_.pickEnded();
}

platform::PanelWindow& MainPanel::panel()
{
    auto* view = content().view.data();
    if (!panel_)
        panel_ = std::make_unique<platform::PanelWindow>([this] {
            // A pick by the desktop's own means, or a drag into another program.
            return events_.keepsOpen() || model().isSampling() || platform::isColorDragRunning();
        });
    if (view->window() != panel_.get())
        panel_->setContent(window_ ? window_->takeContent() : view);
    return *panel_;
}

platform::ContentWindow& MainPanel::window()
{
    auto* view = content().view.data();
    if (!window_)
        window_ = std::make_unique<platform::ContentWindow>(
            platform::ContentWindow::Title {
                QStringLiteral("Tintwell"), CaptureHeader::fullHeight },
            events_.closed, events_.escape);
    if (view->window() != window_.get())
        window_->setContent(panel_ ? panel_->takeContent() : view);
    return *window_;
}

platform::ContentWindow* MainPanel::openWindow() const
{
    return window_ && window_->isVisible() ? window_.get() : nullptr;
}

} // namespace tintwell
