#include "Tip.h"

#include "Accessibility.h"
#include "Metrics.h"
#include "TextPainting.h"
#include "ThemeSource.h"
#include "Window.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>

namespace platform {

namespace {

constexpr TextStyle textStyle { .size = 11 };
constexpr int longestLine = 280;
constexpr QMargins padding { 9, 5, 9, 5 };
constexpr FloatingPlate::Drop near { 1, 2, 0.08 };
constexpr FloatingPlate::Drop far { 4, 8, 0.12 };
/// Around the plate.
constexpr int shadowRoom = 28;
/// From the point of the pointer to a tip below it, which the pointer must not cover, and to one
/// above it.
constexpr int below = 20;
constexpr int above = 8;
/// What takes a tip away.
constexpr auto ends = std::to_array<QEvent::Type>(
    { QEvent::Leave, QEvent::FocusIn, QEvent::FocusOut, QEvent::WindowActivate,
        QEvent::WindowDeactivate, QEvent::KeyPress, QEvent::MouseButtonPress, QEvent::Wheel });

std::chrono::milliseconds readingTime(const QString& text)
{
    return std::chrono::milliseconds(10'000 + 40 * text.size());
}

QPointer<Tip>& shownTip()
{
    static QPointer<Tip> tip;
    return tip;
}

/// Answers the toolkit's question for the tooltip of a widget.
class TipSource : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip || !watched->isWidgetType())
            return false;
        auto& widget = static_cast<QWidget&>(*watched);
        if (widget.toolTip().isEmpty() || dynamic_cast<Window*>(widget.window()) == nullptr)
            return false;
        Tip::show(widget, static_cast<QHelpEvent*>(event)->globalPos(), widget.toolTip());
        return true;
    }
};

} // namespace

void Tip::install()
{
    static auto* source = new TipSource(qApp);
    qApp->removeEventFilter(source);
    qApp->installEventFilter(source);
}

void Tip::show(QWidget& owner, const QPoint& place, const QString& text)
{
    auto& window = *owner.window();
    delete shownTip();
    shownTip() = new Tip(window, window.mapFromGlobal(place), text);
}

Tip::Tip(QWidget& window, const QPoint& pointer, const QString& text)
    : QWidget(&window)
    , lines_(wrapped(text, fontOf(textStyle), longestLine))
    , ground_(Metrics::menuRowRadius, near, far)
    , opacity_([this] { update(); })
{
    setAccessibleRole(*this, QAccessible::ToolTip);
    setAccessibleName(text);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QSize size(0, static_cast<int>(lines_.size()) * lineHeightOf(textStyle));
    for (const auto& line : lines_)
        size.setWidth(std::max(
            size.width(), qCeil(QFontMetricsF(fontOf(textStyle)).horizontalAdvance(line))));
    size = size.grownBy(padding);
    const auto room = window.rect().marginsRemoved(QMargins() + Metrics::menuGap);
    const auto left = std::clamp(pointer.x(), room.left(), room.right() + 1 - size.width());
    const auto fitsBelow = pointer.y() + below + size.height() <= room.bottom() + 1;
    const auto top = fitsBelow ? pointer.y() + below : pointer.y() - above - size.height();
    plate_ = QRect(QPoint(shadowRoom, shadowRoom), size);
    setGeometry(QRect(QPoint(left, top), size).marginsAdded(QMargins() + shadowRoom));
    raise();
    QWidget::show();
    opacity_.moveTo(1, Metrics::menuFade);
    qApp->installEventFilter(this);
    QTimer::singleShot(readingTime(text), this, [this] { deleteLater(); });
}

bool Tip::eventFilter(QObject* watched, QEvent* event)
{
    if (std::find(ends.begin(), ends.end(), event->type()) != ends.end()) {
        hide();
        deleteLater();
    }
    return QWidget::eventFilter(watched, event);
}

void Tip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setOpacity(opacity_.value());
    ground_.paint(painter, plate_);
    auto line = QRectF(plate_.marginsRemoved(padding));
    line.setHeight(lineHeightOf(textStyle));
    for (const auto& text : lines_) {
        paintLine(painter, line, text, textStyle, currentTheme().text);
        line.translate(0, line.height());
    }
}

} // namespace platform
