// The desktop application: a status item whose panel shows the root view.
#include "TintwellApp.h"

#include "ColorDrag.h"
#include "PanelWindow.h"
#include "QtStatusItem.h"
#include "TerminationSignals.h"
#include "ThemeSource.h"
#include "TrayIcon.h"

#include <QApplication>
#include <QScreen>
#include <QShortcut>

#include <cstdio>

namespace tintwell {

namespace {

using Presence = platform::StatusItem::Presence;
using Outcome = platform::SingleInstance::Outcome;

constexpr auto applicationID = TINTWELL_APP_ID;
constexpr auto previewAction = "preview";

/// Trays are at the far end of the bar: the edge of the screen that is not available.
QRect likelyItemPlace()
{
    const auto* screen = QGuiApplication::primaryScreen();
    const auto whole = screen->geometry();
    const auto free = screen->availableGeometry();
    const bool barIsBelow = whole.bottom() - free.bottom() > free.top() - whole.top();
    return { whole.right() - 1, barIsBelow ? whole.bottom() : whole.top(), 1, 1 };
}

} // namespace

TintwellApp::TintwellApp(std::vector<std::string> arguments)
    : arguments_(std::move(arguments))
    , instance_(
          applicationID, [this](const platform::ActivationRequest& request) { handle(request); })
    , services_({ .willShow = [this] { hideForPick(); }, .didEnd = [this] { showAfterPick(); } })
    , appDelegate_(services_, [this] { windowClosed(); })
{
}

TintwellApp::~TintwellApp()
{
    // The views go before their model.
    item_.reset();
    panel_.reset();
    window_.reset();
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
    launch();
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

void TintwellApp::launch()
{
    item_ = platform::makeStatusItem(
        { applicationID, "Tintwell",
            { { "Open Tintwell", [this] { showPanel(); } }, { "Sample", [this] { sample(); } },
                { "Quit Tintwell", [] { QApplication::quit(); } } } },
        { [this](const std::optional<platform::ScreenRect>& place) { itemActivated(place); },
            [this](Presence presence) { trayChanged(presence); } },
        paintTrayIcon);
    appDelegate_.applicationDidFinishLaunching(arguments_);
}

void TintwellApp::handle(const platform::ActivationRequest& request)
{
    // Qt's Wayland plugin takes the right to the focus from there.
    if (!request.token.empty())
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(request.token));
    if (request.action == previewAction)
        appDelegate_.showPreviewWindow();
    else
        showPanel();
}

bool TintwellApp::hasTray() const
{
    return item_->presence() == Presence::shown;
}

bool TintwellApp::isDocked() const
{
    return hasTray() && QGuiApplication::platformName() == QStringLiteral("xcb");
}

void TintwellApp::itemActivated(const std::optional<platform::ScreenRect>& place)
{
    if (place)
        lastPlace_ = QRect(place->x, place->y, place->width, place->height);
    const bool isWindow = window_ && window_->isVisible();
    if (isWindow && window_->isActiveWindow())
        window_->hide();
    else if (isWindow)
        window_->present();
    else if (isDocked())
        panel().toggle(anchor());
    else
        showPanelAsWindow();
}

QRect TintwellApp::anchor() const
{
    if (const auto place = item_->place())
        return { place->x, place->y, place->width, place->height };
    return lastPlace_.value_or(likelyItemPlace());
}

void TintwellApp::trayChanged(Presence presence)
{
    if (presence == Presence::absent)
        standIn();
    // Nobody asked for the window and nobody has touched it, and the item is there after all.
    if (presence == Presence::shown && std::exchange(standsIn_, false) && !window_->wasUsed())
        window_->hide();
}

void TintwellApp::standIn()
{
    // Windows that make room for a pick come back.
    if (hasOpenWindow() || !hiddenForPick_.empty())
        return;
    showPanelAsWindow();
    standsIn_ = true;
}

/// The picked colour shows in the panel, so it opens when the pick is over.
void TintwellApp::sample()
{
    auto& model = *content().model;
    if (model.isSampling())
        return;
    model.beginSampling();
    pick_ = model.observe([this, &model] {
        // The model announces a change before it makes it.
        const auto look = [this, &model] {
            if (model.isSampling())
                return;
            pick_ = {};
            showPanel();
        };
        QMetaObject::invokeMethod(qApp, look, Qt::QueuedConnection);
    });
}

void TintwellApp::hideForPick()
{
    // The item is a window too, to the toolkit; a tray forgets one that is hidden.
    const auto isOurs = [](const QWidget& widget) {
        return widget.windowType() == Qt::Window
            && !widget.windowFlags().testFlag(Qt::BypassWindowManagerHint);
    };
    hiddenForPick_.clear();
    for (auto* widget : QApplication::topLevelWidgets())
        if (isOurs(*widget) && widget->isVisible() && !widget->isMinimized()) {
            hiddenForPick_.emplace_back(widget);
            widget->hide();
        }
}

void TintwellApp::showAfterPick()
{
    // The application ends, and most of it may be gone.
    if (item_ == nullptr)
        return;
    for (const auto& widget : std::exchange(hiddenForPick_, {}))
        if (widget != nullptr)
            widget->show();
    if (panel_ && panel_->isVisible())
        panel_->activateWindow();
    if (item_->presence() == Presence::absent)
        standIn();
}

void TintwellApp::showPanel()
{
    standsIn_ = false;
    if (window_ && window_->isVisible())
        window_->present();
    else if (isDocked())
        panel().openBeside(anchor());
    else
        showPanelAsWindow();
}

void TintwellApp::showPanelAsWindow()
{
    window().present();
}

PanelContent& TintwellApp::content()
{
    if (!content_)
        content_ = makePanelContent(services_);
    return *content_;
}

platform::PanelWindow& TintwellApp::panel()
{
    auto* view = content().view.data();
    if (!panel_)
        panel_ = std::make_unique<platform::PanelWindow>([this] {
            // A pick by the desktop's own means, or a drag into another program.
            return content().model->isSampling() || platform::isColorDragRunning();
        });
    if (view->window() != panel_.get())
        panel_->setContent(window_ ? window_->takeContent() : view);
    return *panel_;
}

platform::ContentWindow& TintwellApp::window()
{
    auto* view = content().view.data();
    if (!window_) {
        window_ = std::make_unique<platform::ContentWindow>(
            QStringLiteral("Tintwell"), [this] { windowClosed(); });
        // The item brings the window back.
        auto* escape = new QShortcut(Qt::Key_Escape, window_.get());
        QObject::connect(escape, &QShortcut::activated, window_.get(), [this] {
            if (hasTray())
                window_->hide();
        });
    }
    if (view->window() != window_.get())
        window_->setContent(panel_ ? panel_->takeContent() : view);
    return *window_;
}

/// Without an item nobody could reach a process that shows no window.
void TintwellApp::windowClosed()
{
    if (item_->presence() == Presence::absent && !hasOpenWindow())
        QApplication::quit();
}

bool TintwellApp::hasOpenWindow() const
{
    const auto isOpen
        = [](const QWidget* widget) { return widget != nullptr && widget->isVisible(); };
    return isOpen(window_.get()) || isOpen(appDelegate_.previewWindow());
}

} // namespace tintwell
