#include "Window.h"

#include "Accessibility.h"
#include "ScrollArea.h"
#include "Tip.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QList>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace platform {

namespace {

bool isStop(const QWidget& widget)
{
    // A widget with a focus proxy is no stop itself: its proxy is.
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !widget.focusProxy();
}

/// How long a compositor may take to give the focus.
constexpr std::chrono::milliseconds focusWait { 300 };

bool isOnWayland()
{
    return QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

/// A token from whoever had the focus, or the focus itself.
bool canAskForFocus()
{
    return !qEnvironmentVariableIsEmpty("XDG_ACTIVATION_TOKEN")
        || QGuiApplication::focusWindow() != nullptr;
}

QList<QWidget*> childrenInReadingOrder(const QWidget& part)
{
    auto children = part.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    const int side = part.layoutDirection() == Qt::LeftToRight ? 1 : -1;
    std::stable_sort(children.begin(), children.end(), [side](const QWidget* a, const QWidget* b) {
        return a->y() != b->y() ? a->y() < b->y() : side * a->x() < side * b->x();
    });
    return children;
}

/// Appends the stops below `part`: those in sight, and `focused` even when it has been hidden.
void collectStops(const QWidget& part, const QWidget* focused, std::vector<QWidget*>& stops)
{
    for (auto* child : childrenInReadingOrder(part)) {
        const bool leads = focused && (child == focused || child->isAncestorOf(focused));
        if (child->isWindow() || !(leads || (child->isVisible() && child->isEnabled())))
            continue;
        if (const auto* group = dynamic_cast<const TabGroup*>(child)) {
            if (auto* stop = group->tabStop())
                stops.push_back(stop);
            continue;
        }
        if (isStop(*child))
            stops.push_back(child);
        collectStops(*child, focused, stops);
    }
}

} // namespace

Window::Window(Qt::WindowFlags flags, std::function<void()> escape)
    : QWidget(nullptr, flags | Qt::Window)
    , escape_(std::move(escape))
{
    setAccessibleRole(*this, QAccessible::Window);
    Tip::install();
    // Takes the keys while no control has the focus.
    setFocusPolicy(Qt::ClickFocus);
    setFocus();
}

void Window::present()
{
    if (isMinimized())
        showNormal();
    if (isVisible() && !isActiveWindow() && isOnWayland()) {
        if (canAskForFocus())
            // The compositor need not believe in the token, and tells nobody.
            QTimer::singleShot(focusWait, this, &Window::insistOnFront);
        else
            hide();
    }
    show();
    raise();
    activateWindow();
}

void Window::insistOnFront()
{
    if (!isVisible() || isActiveWindow())
        return;
    hide();
    present();
}

/// When the focused control is being hidden, the focus goes to the one before it.
bool Window::focusNextPrevChild(bool next)
{
    const auto* focused = focusWidget();
    std::vector<QWidget*> stops;
    collectStops(*this, focused, stops);
    auto here = std::find(stops.begin(), stops.end(), focused);
    auto reason = next ? Qt::TabFocusReason : Qt::BacktabFocusReason;
    if (here != stops.end() && !focused->isVisible()) {
        // Nobody pressed a key, so the ring is shown only if it was shown before.
        reason = Qt::OtherFocusReason;
        next = false;
        here = stops.erase(here);
    } else if (here != stops.end() && next) {
        ++here;
    }
    if (stops.empty())
        return false;
    if (next && here == stops.end())
        here = stops.begin();
    else if (!next)
        here = here == stops.begin() ? std::prev(stops.end()) : std::prev(here);
    (*here)->setFocus(reason);
    for (auto* part = (*here)->parentWidget(); part; part = part->parentWidget())
        if (auto* area = qobject_cast<ScrollArea*>(part))
            area->revealFocus();
    return true;
}

void Window::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && escape_)
        escape_();
    else
        QWidget::keyPressEvent(event);
}

} // namespace platform
