#include "TintwellAppDelegate.h"

#include <QGuiApplication>

#include <algorithm>

namespace tintwell {

/// The window is declared last: its view goes before the model that it shows.
struct TintwellAppDelegate::WindowController {
    WindowController(DesktopServices& services, std::function<void()> closed)
        : content(makeModelAndView(services))
        , window({ QStringLiteral("Tintwell Preview") }, std::move(closed))
    {
        window.setContent(content.view);
    }

    ModelAndView content;
    platform::ContentWindow window;
};

bool TintwellAppDelegate::asksForPreview(const std::vector<std::string>& arguments)
{
    return std::find(arguments.begin(), arguments.end(), previewSwitch) != arguments.end();
}

TintwellAppDelegate::TintwellAppDelegate(
    DesktopServices& services, std::function<void()> windowClosed)
    : services_(services)
    , windowClosed_(std::move(windowClosed))
{
}

TintwellAppDelegate::~TintwellAppDelegate() = default;

void TintwellAppDelegate::applicationDidFinishLaunching(const std::vector<std::string>& arguments)
{
    QGuiApplication::setQuitOnLastWindowClosed(false);
    if (asksForPreview(arguments))
        showPreviewWindow();
}

void TintwellAppDelegate::showPreviewWindow()
{
    if (!previewWindowController_)
        previewWindowController_ = std::make_unique<WindowController>(services_, windowClosed_);
    previewWindowController_->window.present();
}

} // namespace tintwell
