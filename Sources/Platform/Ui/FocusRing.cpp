#include "FocusRing.h"

#include "Metrics.h"
#include "Shapes.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QWidget>

namespace platform {

namespace {

constexpr double fullReach = Metrics::focusRingGap + Metrics::focusRingThickness;

/// Whether the keyboard moved the focus last. If so, the ring is also shown where the focus comes
/// back by itself, as when a window becomes active again.
bool keyboardInUse = false;

/// The part of the window in which `widget` can be seen.
QRect visibleArea(const QWidget& widget)
{
    auto area = widget.window()->rect();
    for (const auto* parent = widget.parentWidget(); parent != nullptr;
         parent = parent->parentWidget()) {
        const auto* scroller = qobject_cast<const QAbstractScrollArea*>(parent->parentWidget());
        if (scroller != nullptr && scroller->viewport() == parent)
            area &= QRect(parent->mapTo(widget.window(), QPoint()), parent->size());
    }
    return area;
}

/// Keys that act on the window, not on what has the focus.
bool isShortcut(const QKeyEvent& event)
{
    constexpr auto shortcutKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return (event.modifiers() & shortcutKeys) != 0 || event.key() == Qt::Key_Control
        || event.key() == Qt::Key_Alt || event.key() == Qt::Key_Meta
        || event.key() == Qt::Key_Shift;
}

} // namespace

/// A child of the window, as large as the ring.
class FocusRing::Overlay : public QWidget {
public:
    Overlay(QWidget* window, const FocusRing& ring)
        : QWidget(window)
        , ring_(ring)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

    /// Takes its place around `frame`, showing only what lies in `area`; both in the window.
    void place(const QRect& frame, const QRect& area)
    {
        const auto reach = qCeil(fullReach);
        const auto whole = frame.adjusted(-reach, -reach, reach, reach);
        const auto visible = whole & area;
        setGeometry(visible);
        frame_ = frame.translated(-visible.topLeft());
        setVisible(!visible.isEmpty());
        raise();
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const auto grown = [this](double reach) {
            return smoothRoundedRect(
                QRectF(frame_).adjusted(-reach, -reach, reach, reach), ring_.radius_ + reach);
        };
        auto ring = grown(fullReach);
        ring.addPath(grown(Metrics::focusRingGap));
        ring.setFillRule(Qt::OddEvenFill);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(ring, ring_.color_);
    }

private:
    const FocusRing& ring_;
    QRect frame_;
};

FocusRing::FocusRing(QWidget& control, double radius)
    : QObject(&control)
    , control_(control)
    , framed_(&control)
    , radius_(radius)
    , color_(control.palette().color(QPalette::Highlight))
{
    control.installEventFilter(this);
}

FocusRing::~FocusRing()
{
    delete overlay_;
}

void FocusRing::setColor(const QColor& color)
{
    color_ = color;
    if (overlay_)
        overlay_->update();
}

void FocusRing::setFramed(QWidget& framed, double radius)
{
    framed_ = &framed;
    radius_ = radius;
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &control_) {
        if (event->type() == QEvent::FocusIn)
            focusEntered(static_cast<QFocusEvent*>(event)->reason());
        else if (event->type() == QEvent::FocusOut)
            hide();
        else if (event->type() == QEvent::KeyPress && control_.hasFocus()
            && !isShortcut(*static_cast<QKeyEvent*>(event))) {
            keyboardInUse = true;
            show();
        }
    }
    switch (static_cast<int>(event->type())) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::ZOrderChange:
        if (overlay_)
            place();
        break;
    case QEvent::Hide:
    case QEvent::ParentChange:
        if (overlay_)
            hide();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void FocusRing::focusEntered(Qt::FocusReason reason)
{
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason)
        keyboardInUse = true;
    if (reason == Qt::MouseFocusReason)
        keyboardInUse = false;
    if (keyboardInUse)
        show();
}

void FocusRing::show()
{
    if (overlay_ || !framed_)
        return;
    overlay_ = new Overlay(control_.window(), *this);
    for (auto* widget = framed_.data(); widget != nullptr && !widget->isWindow();
         widget = widget->parentWidget())
        widget->installEventFilter(this);
    place();
}

void FocusRing::hide()
{
    if (!overlay_)
        return;
    for (auto* widget = framed_.data(); widget != nullptr && !widget->isWindow();
         widget = widget->parentWidget()) {
        if (widget != &control_)
            widget->removeEventFilter(this);
    }
    delete overlay_;
}

void FocusRing::place()
{
    auto* window = control_.window();
    const QRect frame(framed_->mapTo(window, QPoint()), framed_->size());
    overlay_->place(frame, visibleArea(*framed_));
}

} // namespace platform
