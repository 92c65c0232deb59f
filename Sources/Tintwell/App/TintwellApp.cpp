#include "TintwellApp.h"

#include "TerminationSignals.h"
#include "ThemeSource.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace tintwell {

namespace {

using Outcome = platform::SingleInstance::Outcome;

constexpr auto applicationID = TINTWELL_APP_ID;
constexpr auto previewAction = "preview";

} // namespace

TintwellApp::TintwellApp(std::vector<std::string> arguments)
    : arguments_(std::move(arguments))
    , instance_(applicationID,
          [this](const auto& request, const auto& answer) { handle(request, answer); })
    , appDelegate_(services_, [this] { panel_->windowClosed(); })
{
}

int TintwellApp::run()
{
    const bool preview = TintwellAppDelegate::asksForPreview(arguments_);
    const auto outcome = instance_.claim(
        platform::ActivationRequest::fromEnvironment(preview ? previewAction : ""));
    switch (outcome) {
    case Outcome::handedOver:
        return 0;
    case Outcome::unanswered:
        std::fputs("Tintwell is already running but does not answer.\n", stderr);
        return 1;
    case Outcome::first:
        break;
    }
    followDesktop();
    const platform::TerminationSignals signals([] { QApplication::quit(); });
    using FirstTray = platform::StatusItem::FirstTray;
    const bool isInBackground
        = std::find(arguments_.begin(), arguments_.end(), backgroundSwitch) != arguments_.end();
    panel_ = std::make_unique<PanelPresenter>(applicationID, services_, settings_,
        isInBackground ? FirstTray::mayBeLate : FirstTray::isThereOrNever);
    appDelegate_.applicationDidFinishLaunching(arguments_);
    offerShortcut();
    const int code = QApplication::exec();
    // First of all: what follows may take seconds, while the clipboard is handed over.
    instance_.release();
    return code;
}

void TintwellApp::followDesktop()
{
    using platform::DesktopSettings;
    QObject::connect(&desktopSettings_, &DesktopSettings::changed, &desktopSettings_, [this] {
        platform::ThemeSource::instance().setDesktopPreferences(desktopSettings_.preferences());
    });
    desktopSettings_.start();
}

void TintwellApp::offerShortcut()
{
    if (!settings_.offersShortcut())
        return;
    shortcut_ = std::make_unique<platform::GlobalShortcut>(
        platform::GlobalShortcut::Content { "tintwell", pickAction, "Sample a Color" },
        platform::GlobalShortcut::Events {
            [this] { panel_->pick({}); }, [this] { settings_.setOffersShortcut(false); } });
}

void TintwellApp::handle(
    const platform::ActivationRequest& request, const platform::SingleInstance::Answer& answer)
{
    // Qt's Wayland plugin takes the right to the focus from there.
    if (!request.token.empty())
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(request.token));
    if (request.action == pickAction)
        return panel_->pick(answer);
    if (request.action == previewAction)
        appDelegate_.showPreviewWindow();
    else
        panel_->show();
    answer({});
}

} // namespace tintwell
