#include "ScrollArea.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QScroller>

namespace platform {

namespace {

/// Stays in sight around a focused control: what belongs to it, such as its label or heading.
constexpr int focusMargin = 64;
constexpr int arrowStep = 48;

} // namespace

ScrollArea::ScrollArea(QWidget* content, QWidget* parent)
    : QScrollArea(parent)
    , glide_(*this)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    setWidget(content);
    content->setAutoFillBackground(false);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
}

void ScrollArea::scrollToTop()
{
    glide_.stop();
    verticalScrollBar()->setValue(0);
}

void ScrollArea::keyPressEvent(QKeyEvent* event)
{
    auto* bar = verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_Up:
        return glide_.to(bar->value() - arrowStep);
    case Qt::Key_Down:
        return glide_.to(bar->value() + arrowStep);
    case Qt::Key_PageUp:
        return glide_.to(bar->value() - bar->pageStep());
    case Qt::Key_PageDown:
        return glide_.to(bar->value() + bar->pageStep());
    case Qt::Key_Home:
        return glide_.to(bar->minimum());
    case Qt::Key_End:
        return glide_.to(bar->maximum());
    default:
        event->ignore();
    }
}

bool ScrollArea::focusNextPrevChild(bool next)
{
    if (!QScrollArea::focusNextPrevChild(next))
        return false;
    revealFocus();
    return true;
}

void ScrollArea::revealFocus()
{
    auto* focused = window()->focusWidget();
    if (!focused || !widget()->isAncestorOf(focused))
        return;
    glide_.stop();
    ensureWidgetVisible(focused, 0, focusMargin);
}

} // namespace platform
