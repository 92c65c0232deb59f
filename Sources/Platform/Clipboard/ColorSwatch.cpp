#include "ColorSwatch.h"

#include "ColorDrag.h"
#include "SwatchPainting.h"
#include "ToolkitColor.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <cmath>

namespace platform {

namespace {

constexpr double clickReach = 3.0;

/// Where an event lies in the view. The position in the window is the one that the toolkit does not
/// round to whole points.
QPointF locationIn(const QWidget& view, const QMouseEvent& event)
{
    return view.mapFrom(view.window(), event.scenePosition());
}

/// The desktop's accessibility bus has no textual values; it reads them as the text of the object,
/// which is what the text interface is for.
class SwatchAccessible final : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit SwatchAccessible(ColorSwatch* view)
        : QAccessibleWidget(view, QAccessible::Button)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value)
            return hex();
        const auto text = view().readText(kind);
        return text.isEmpty() ? QAccessibleWidget::text(kind) : text;
    }

    QStringList actionNames() const override
    {
        return QStringList { pressAction() } + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override
    {
        if (name == pressAction())
            view().press();
        else
            QAccessibleWidget::doAction(name);
    }

    QString text(int start, int end) const override { return hex().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(hex().size()); }
    QRect characterRect(int /*offset*/) const override { return rect(); }
    int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override { }
    int selectionCount() const override { return 0; }
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    void addSelection(int /*start*/, int /*end*/) override { }
    void removeSelection(int /*index*/) override { }
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override { }
    void scrollToSubstring(int /*start*/, int /*end*/) override { }
    QString attributes(int /*offset*/, int* start, int* end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

private:
    [[nodiscard]] ColorSwatch& view() const { return *static_cast<ColorSwatch*>(widget()); }
    [[nodiscard]] QString hex() const { return hexText(view().color()); }
};

QAccessibleInterface* swatchAccessible(const QString& /*className*/, QObject* object)
{
    auto* const view = dynamic_cast<ColorSwatch*>(object);
    return view != nullptr ? new SwatchAccessible(view) : nullptr;
}

} // namespace

ColorSwatch::ColorSwatch(
    const QColor& color, double cornerRadius, std::function<void()> onClick, QWidget* parent)
    : QWidget(parent)
    , color_(color)
    , cornerRadius_(cornerRadius)
    , onClick_(std::move(onClick))
{
    QAccessible::installFactory(swatchAccessible);
    setCursor(Qt::OpenHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

void ColorSwatch::setColor(const QColor& color)
{
    if (color == color_)
        return;
    color_ = color;
    readDescription_.tell(*this, QAccessible::DescriptionChanged);
    update();
}

QString ColorSwatch::readText(QAccessible::Text which)
{
    if (which == QAccessible::Name)
        readName_.setRead();
    if (which == QAccessible::Description)
        readDescription_.setRead();
    return textOf(which);
}

void ColorSwatch::setPaintedColor(const QColor& color)
{
    if (color == paintedColor_)
        return;
    paintedColor_ = color;
    update();
}

void ColorSwatch::setCornerRadius(double cornerRadius)
{
    cornerRadius_ = cornerRadius;
    update();
}

void ColorSwatch::press()
{
    // The callback may replace itself or take the view away.
    if (const auto onClick = onClick_)
        onClick();
}

void ColorSwatch::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    paintSwatch(painter, rect(), cornerRadius_, paintedColor());
}

void ColorSwatch::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    mouseDownLocation_ = locationIn(*this, *event);
    didBeginDrag_ = false;
}

void ColorSwatch::mouseMoveEvent(QMouseEvent* event)
{
    if (didBeginDrag_ || !mouseDownLocation_)
        return;
    const QPointF moved = locationIn(*this, *event) - *mouseDownLocation_;
    if (std::hypot(moved.x(), moved.y()) <= clickReach)
        return;
    didBeginDrag_ = true;
    runDrag();
}

void ColorSwatch::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const bool isClick = mouseDownLocation_ && !didBeginDrag_;
    endPress();
    if (isClick)
        press();
}

void ColorSwatch::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            press();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void ColorSwatch::hideEvent(QHideEvent* event)
{
    // A view that vanishes under the pointer gets no release.
    if (!didBeginDrag_)
        endPress();
    QWidget::hideEvent(event);
}

void ColorSwatch::endPress()
{
    mouseDownLocation_.reset();
    didBeginDrag_ = false;
}

void ColorSwatch::runDrag()
{
    const QPointer<ColorSwatch> self(this);
    runColorDrag(color_, devicePixelRatioF());
    // The drag took the release; one that comes all the same must not count as a click.
    if (self)
        endPress();
}

} // namespace platform
