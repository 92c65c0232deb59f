#include "ScrollArea.h"

#include "ThemeSource.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QScroller>
#include <QWheelEvent>

#include <algorithm>

namespace platform {

namespace {

constexpr int pixelsPerNotch = 64;
constexpr double anglePerNotch = 120;
constexpr int glideMilliseconds = 140;
/// Stays in sight around a focused control: what belongs to it, such as its label or heading.
constexpr int focusMargin = 64;

} // namespace

ScrollArea::ScrollArea(QWidget* content, QWidget* parent)
    : QScrollArea(parent)
    , glide_(verticalScrollBar(), "value")
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    setWidget(content);
    content->setAutoFillBackground(false);
    glide_.setEasingCurve(QEasingCurve::OutCubic);
    glide_.setDuration(glideMilliseconds);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
}

void ScrollArea::scrollToTop()
{
    glide_.stop();
    verticalScrollBar()->setValue(0);
}

void ScrollArea::glideTo(int value)
{
    auto* bar = verticalScrollBar();
    const int end = std::clamp(value, bar->minimum(), bar->maximum());
    glide_.stop();
    if (ThemeSource::instance().reducesMotion() || !isVisible()) {
        bar->setValue(end);
        return;
    }
    glide_.setStartValue(bar->value());
    glide_.setEndValue(end);
    glide_.start();
}

void ScrollArea::wheelEvent(QWheelEvent* event)
{
    auto* bar = verticalScrollBar();
    const int wanted = event->angleDelta().y() > 0 ? bar->minimum() : bar->maximum();
    const bool gliding = glide_.state() == QAbstractAnimation::Running;
    // At its end it leaves the wheel to what scrolls around it.
    if (bar->value() == wanted && !gliding)
        return event->ignore();
    // On X11 these are the driver's own units, for the notches of a wheel too.
    const bool hasPixels = QGuiApplication::platformName() != QLatin1String("xcb");
    if (const int pixels = event->pixelDelta().y(); hasPixels && pixels != 0) {
        glide_.stop();
        bar->setValue(bar->value() - pixels);
    } else if (const int angle = event->angleDelta().y(); angle != 0) {
        // A notch that comes during a glide goes on from where that one was heading.
        const int from = gliding ? glide_.endValue().toInt() : bar->value();
        glideTo(from - qRound(angle / anglePerNotch * pixelsPerNotch));
    }
    event->accept();
}

void ScrollArea::keyPressEvent(QKeyEvent* event)
{
    auto* bar = verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_PageUp:
        return glideTo(bar->value() - bar->pageStep());
    case Qt::Key_PageDown:
        return glideTo(bar->value() + bar->pageStep());
    case Qt::Key_Home:
        return glideTo(bar->minimum());
    case Qt::Key_End:
        return glideTo(bar->maximum());
    default:
        // The arrow keys belong to whoever is above: a grid moves its focus with them.
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
