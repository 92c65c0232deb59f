#include "ContentWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace platform {

namespace {

/// What a title bar and borders take at most.
constexpr QSize decoration { 8, 40 };

} // namespace

ContentWindow::ContentWindow(
    const QString& title, std::function<void()> closed, std::function<void()> escape)
    : Window(ordinary, std::move(escape))
    , closed_(std::move(closed))
    , viewport_(this)
{
    setWindowTitle(title);
}

void ContentWindow::setContent(QWidget* content)
{
    viewport_.setContent(content);
    fitToScreen();
}

void ContentWindow::fitToScreen()
{
    const auto room = QGuiApplication::primaryScreen()->availableGeometry();
    const auto size = viewport_.sizeHint().boundedTo(room.size() - decoration);
    viewport_.resize(size);
    setFixedSize(size);
    if (!isVisible())
        move(room.center() - rect().center());
}

void ContentWindow::present()
{
    if (!isVisible())
        wasUsed_ = false;
    Window::present();
    // Before anything reaches the widgets inside.
    windowHandle()->installEventFilter(this);
}

void ContentWindow::closeEvent(QCloseEvent* event)
{
    // Accepted, or the application could not quit while the window is open.
    event->accept();
    hide();
    closed_();
}

bool ContentWindow::eventFilter(QObject* watched, QEvent* event)
{
    const auto type = event->type();
    if (type == QEvent::MouseButtonPress || type == QEvent::Wheel || type == QEvent::KeyPress
        || type == QEvent::TouchBegin)
        wasUsed_ = true;
    return Window::eventFilter(watched, event);
}

} // namespace platform
