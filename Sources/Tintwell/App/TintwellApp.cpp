#include "TintwellApp.h"

#include "TerminationSignals.h"
#include "ThemeSource.h"

#include <QApplication>

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
    , instance_(
          applicationID, [this](const platform::ActivationRequest& request) { handle(request); })
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
    panel_ = std::make_unique<PanelPresenter>(applicationID, services_);
    appDelegate_.applicationDidFinishLaunching(arguments_);
    return QApplication::exec();
}

void TintwellApp::followDesktop()
{
    using platform::DesktopSettings;
    QObject::connect(&settings_, &DesktopSettings::changed, &settings_, [this] {
        platform::ThemeSource::instance().setDesktopPreferences(settings_.preferences());
    });
    settings_.start();
}

void TintwellApp::handle(const platform::ActivationRequest& request)
{
    // Qt's Wayland plugin takes the right to the focus from there.
    if (!request.token.empty())
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(request.token));
    if (request.action == previewAction)
        appDelegate_.showPreviewWindow();
    else
        panel_->show();
}

} // namespace tintwell
