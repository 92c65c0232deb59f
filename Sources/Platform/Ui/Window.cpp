#include "Window.h"

#include "Accessibility.h"
#include "ReadingOrder.h"

#include <QKeyEvent>

#include <utility>

namespace platform {

Window::Window(Qt::WindowFlags flags, std::function<void()> escape)
    : QWidget(nullptr, flags | Qt::Window)
    , escape_(std::move(escape))
{
    setAccessibleRole(*this, QAccessible::Window);
    // Takes the keys while no control has the focus.
    setFocusPolicy(Qt::ClickFocus);
    setFocus();
}

bool Window::focusNextPrevChild(bool next)
{
    return moveFocusInReadingOrder(*this, next);
}

void Window::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && escape_)
        escape_();
    else
        QWidget::keyPressEvent(event);
}

} // namespace platform
