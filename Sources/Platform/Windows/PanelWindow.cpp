#include "PanelWindow.h"

#include "ContentWindow.h"
#include "X11Window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QPainter>
#include <QScreen>
#include <QWindow>

namespace platform {

namespace {

/// A press on the item takes the focus away and closes the panel; its click comes with the release.
constexpr std::chrono::seconds longestPress { 2 };
constexpr int pressDrift = 8;
constexpr std::chrono::milliseconds releaseLook { 20 };
/// The toolkit tells that a window lost the focus 100 ms late, even if it has been closed and
/// opened again since.
constexpr std::chrono::seconds staleFocus { 1 };

} // namespace

PanelWindow::PanelWindow(std::function<bool()> staysOpen)
    : Window(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint, [this] { dismiss(); })
    , staysOpen_(std::move(staysOpen))
    , viewport_(this)
    , corners_(*this, frame_)
{
    setWindowTitle(QCoreApplication::applicationName());
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &PanelWindow::followFocus);
    connect(&release_, &QTimer::timeout, this, &PanelWindow::followButton);
    settling_.setSingleShot(true);
    connect(&settling_, &QTimer::timeout, this,
        [this] { followFocus(QGuiApplication::focusWindow()); });
}

PanelWindow::~PanelWindow() = default;

bool PanelWindow::isPossible()
{
    return X11Display::current() || PlasmaPlacement::isPossible();
}

QRect PanelWindow::availableGeometry(const QScreen& screen)
{
    return PlasmaPlacement::isPossible() ? PlasmaPlacement::availableGeometry(screen)
                                         : screen.availableGeometry();
}

QWidget* PanelWindow::takeContent()
{
    dismiss();
    return viewport_.takeContent();
}

void PanelWindow::toggle(const QRect& anchor)
{
    const auto press = std::exchange(closingPress_, std::nullopt);
    const bool closedByThisClick = press
        && std::chrono::steady_clock::now() - press->time < longestPress
        && (press->pointer - QCursor::pos()).manhattanLength() <= pressDrift;
    if (isVisible())
        dismiss();
    else if (!closedByThisClick)
        openBeside(anchor);
}

void PanelWindow::openBeside(const QRect& anchor)
{
    if (isVisible())
        return present();
    auto* screen = QGuiApplication::screenAt(anchor.center());
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    const bool isOnPlasma = PlasmaPlacement::isPossible();
    const auto display = X11Display::current();
    setComposited(isOnPlasma || (display && display->hasCompositor()));
    const QMargins line(frame_.line(), frame_.line(), frame_.line(), frame_.line());
    const auto size = viewport_.sizeHint().grownBy(line);
    placement_
        = placePanel(anchor, size, frame_.gap(), screen->geometry(), availableGeometry(*screen));
    room_ = frame_.shadowRoom(placement_.direction);
    setGeometry(placement_.frame.marginsAdded(room_));
    layOut();
    if (isOnPlasma) {
        create();
        onPlasma_.emplace(*windowHandle(), pos(), panelRect());
    }
    // Plasma moves what opens and closes itself.
    opening_.run(frame_.isComposited() && !isOnPlasma ? PanelFrame::openingSeconds : 0,
        [this](double share) { showOpening(easedOut(share)); });
    // Nothing is marked before the keyboard is used.
    setFocus();
    present();
}

void PanelWindow::dismiss()
{
    opening_.stop();
    hide();
}

void PanelWindow::showOpening(double shown)
{
    const auto travel = QPointF(placement_.direction) * PanelFrame::openingTravel * (shown - 1);
    if (frame_.isComposited())
        setWindowOpacity(shown);
    move(placement_.frame.marginsAdded(room_).topLeft() + travel.toPoint());
}

/// A window cannot learn to be translucent; a new native one takes its place.
void PanelWindow::setComposited(bool composited)
{
    if (composited == frame_.isComposited())
        return;
    frame_ = PanelFrame(composited);
    setAttribute(Qt::WA_TranslucentBackground, composited);
    if (internalWinId() != 0)
        destroy();
}

QRect PanelWindow::panelRect() const
{
    return rect().marginsRemoved(room_);
}

void PanelWindow::layOut()
{
    const int line = frame_.line();
    viewport_.setGeometry(panelRect().adjusted(line, line, -line, -line));
    corners_.layOut(panelRect());
}

void PanelWindow::prepareNativeWindow(const X11Display& display)
{
    const auto window = static_cast<xcb_window_t>(winId());
    const auto ratio = devicePixelRatioF();
    leaveOutOfTaskbar(display, window);
    setFrameMargins(display, window, room_ * ratio);
    const QRectF panel = panelRect();
    setInputRect(
        display, window, QRectF(panel.topLeft() * ratio, panel.size() * ratio).toAlignedRect());
}

void PanelWindow::followFocus(const QWindow* focus)
{
    const bool isCompanion = focus != nullptr
        && dynamic_cast<const ContentWindow*>(QWidget::find(focus->winId())) == nullptr;
    if (!isVisible() || settling_.isActive() || isCompanion
        || QApplication::activePopupWidget() != nullptr
        || QApplication::activeModalWidget() != nullptr || staysOpen_())
        return;
    const auto display = X11Display::current();
    if (!display || !display->isButtonDown())
        return dismiss();
    // It may be a press that drags something here.
    closingPress_ = ClosingPress { QCursor::pos(), std::chrono::steady_clock::now() };
    release_.start(releaseLook);
}

void PanelWindow::followButton()
{
    const auto display = X11Display::current();
    if (isVisible() && display && display->isButtonDown())
        return;
    release_.stop();
    const auto press = std::exchange(closingPress_, std::nullopt);
    if (!press || !isVisible() || isActiveWindow() || staysOpen_())
        return;
    // Dropped here: what is used has the focus.
    if (panelRect().contains(mapFromGlobal(QCursor::pos())))
        return activateWindow();
    dismiss();
    closingPress_ = ClosingPress { press->pointer, std::chrono::steady_clock::now() };
}

void PanelWindow::showEvent(QShowEvent* /*event*/)
{
    if (QGuiApplication::focusWindow() != nullptr)
        settling_.start(staleFocus);
    // Window managers forget the states of a window that is hidden.
    if (const auto display = X11Display::current())
        prepareNativeWindow(*display);
}

void PanelWindow::closeEvent(QCloseEvent* event)
{
    // Accepted, or the application could not quit while the panel is open.
    event->accept();
    dismiss();
}

void PanelWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    frame_.paintAround(painter, panelRect());
}

} // namespace platform
