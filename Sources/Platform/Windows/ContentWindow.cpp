#include "ContentWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace platform {

ContentWindow::ContentWindow(
    const Title& title, std::function<void()> closed, std::function<void()> escape)
    : OrdinaryWindow(title.text, title.headerHeight, std::move(escape))
    , closed_(std::move(closed))
    , viewport_(this)
{
}

void ContentWindow::setContent(QWidget* content)
{
    viewport_.setContent(content);
    fitToScreen();
}

void ContentWindow::fitToScreen()
{
    viewport_.resize(viewport_.sizeHint().boundedTo(roomOn(*QGuiApplication::primaryScreen())));
    setBody(viewport_);
    if (!isVisible())
        centre();
}

void ContentWindow::centre()
{
    const auto room = QGuiApplication::primaryScreen()->availableGeometry();
    move(room.center() - QRect({}, frameGeometry().size()).center());
}

void ContentWindow::present()
{
    if (!isVisible()) {
        wasUsed_ = false;
        awaitsFrame_ = !testAttribute(Qt::WA_WState_Created);
    }
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
    if (type == QEvent::Expose && std::exchange(awaitsFrame_, false))
        centre();
    return Window::eventFilter(watched, event);
}

} // namespace platform
