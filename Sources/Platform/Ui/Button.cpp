#include "Button.h"

#include "FocusRing.h"
#include "Fonts.h"
#include "Metrics.h"
#include "Shapes.h"
#include "TextPainting.h"
#include "ThemeSource.h"

#include <QAccessible>
#include <QEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

#include <array>
#include <cmath>

namespace platform {

namespace {

/// The shape of a style. A width of 0 follows the content.
struct Shape {
    int width;
    int height;
    double radius;
    double symbolSize;
    TextStyle text;
    int textPadding;
};

constexpr double hoverOverlay = 0.10;
constexpr double pressedOverlay = 0.20;
constexpr double disabledTint = 0.35;
constexpr double disabledOpacity = 0.45;

const Shape& shapeOf(ButtonStyle style)
{
    static const TextStyle label { .size = 13, .weight = QFont::Medium };
    static const TextStyle quiet { .size = 12, .weight = QFont::Medium };
    // clang-format off
    static const std::array shapes {
        // width height radius symbol text   padding
        Shape { 0,  28,    8,     16,    label, 12 }, // prominent
        Shape { 34, 28,    8,     16,    label, 12 }, // bordered
        Shape { 0,  24,    6,     16,    quiet, 7 },  // borderless
        Shape { 26, 24,    6,     16,    quiet, 7 },  // destructive
        Shape { 26, 28,    7,     18,    quiet, 7 },  // menu
        Shape { 28, 28,    14,    16,    quiet, 7 },  // window
    };
    // clang-format on
    return shapes.at(static_cast<std::size_t>(style));
}

} // namespace

Button::Button(
    ButtonStyle style, const QString& text, std::optional<Symbol> symbol, QWidget* parent)
    : QAbstractButton(parent)
    , style_(style)
    , symbol_(symbol)
    , font_(fontOf(shapeOf(style).text))
    , hover_([this] { update(); })
    , ring_(new FocusRing(*this, shapeOf(style).radius))
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setTitle(text);
    setTint(tint_);
}

void Button::setTitle(const QString& title)
{
    setText(title);
    textWidth_ = QFontMetricsF(font_).horizontalAdvance(title);
    updateGeometry();
    update();
}

void Button::setTint(const Tint& tint)
{
    tint_ = tint;
    ring_->setColor(tint.focusRing);
    update();
}

void Button::setMenuOpen(bool open)
{
    if (open == menuOpen_)
        return;
    menuOpen_ = open;
    updateHover();
    update();
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

double Button::baseline() const
{
    const auto& text = shapeOf(style_).text;
    return (height() - lineHeightOf(text)) / 2.0 + baselineOf(text);
}

QSize Button::sizeHint() const
{
    const auto& shape = shapeOf(style_);
    if (shape.width > 0)
        return { shape.width, shape.height };
    const auto leading = symbol_.has_value() ? Metrics::buttonSymbolPadding
            + static_cast<int>(shape.symbolSize) + Metrics::buttonSymbolGap
                                             : shape.textPadding;
    const auto text = static_cast<int>(std::lround(textWidth_));
    return { leading + text + shape.textPadding, shape.height };
}

void Button::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    if (!isEnabled() && style_ != ButtonStyle::prominent)
        painter.setOpacity(disabledOpacity);
    paintPlate(painter, rect(), shapeOf(style_).radius, plateColor(), plateEdge());
    paintContent(painter, inkColor());
}

void Button::enterEvent(QEnterEvent* event)
{
    updateHover();
    QAbstractButton::enterEvent(event);
}

void Button::leaveEvent(QEvent* event)
{
    updateHover();
    QAbstractButton::leaveEvent(event);
}

void Button::keyPressEvent(QKeyEvent* event)
{
    // They go on to who moves the focus or scrolls; the toolkit would take them for Tab.
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        return event->ignore();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn)
        return QAbstractButton::keyPressEvent(event);
    // A key that is held must not, for instance, delete one row after the other.
    if (!event->isAutoRepeat())
        click();
}

void Button::mouseReleaseEvent(QMouseEvent* event)
{
    // The click may take the button away.
    const QPointer<Button> self(this);
    releasing_ = true;
    QAbstractButton::mouseReleaseEvent(event);
    if (self)
        releasing_ = false;
}

void Button::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (style_ != ButtonStyle::prominent && style_ != ButtonStyle::destructive)
        QAbstractButton::mouseDoubleClickEvent(event);
}

void Button::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        updateHover();
    QAbstractButton::changeEvent(event);
}

void Button::hideEvent(QHideEvent* event)
{
    hover_.moveTo(0, 0);
    QAbstractButton::hideEvent(event);
}

void Button::updateHover()
{
    const auto hovered = (isEnabled() && underMouse()) || menuOpen_;
    hover_.moveTo(hovered ? 1 : 0, hovered ? Metrics::hoverIn : Metrics::hoverOut);
}

QColor Button::plateColor() const
{
    const auto& theme = currentTheme();
    if (style_ == ButtonStyle::prominent) {
        if (!isEnabled())
            return composited(faded(tint_.fill, disabledTint), theme.windowBackground);
        const auto overlay = isDown() ? pressedOverlay : hoverOverlay * hover_.value();
        return composited(faded(tint_.overlay, overlay), tint_.fill);
    }
    if (isDown())
        return theme.controlPressed;
    const auto resting
        = style_ == ButtonStyle::bordered ? theme.controlFill : faded(theme.controlHover, 0);
    return blended(resting, theme.controlHover, hover_.value());
}

QColor Button::plateEdge() const
{
    if (style_ == ButtonStyle::prominent && isEnabled())
        return edgeOf(tint_);
    return style_ == ButtonStyle::bordered ? currentTheme().controlStroke : QColor(Qt::transparent);
}

QColor Button::inkColor() const
{
    const auto& theme = currentTheme();
    switch (style_) {
    case ButtonStyle::prominent:
        return isEnabled() ? tint_.ink : theme.secondary;
    case ButtonStyle::bordered:
        return theme.text;
    case ButtonStyle::borderless:
        return tint_.text;
    case ButtonStyle::destructive:
        return theme.destructive;
    case ButtonStyle::menu:
    case ButtonStyle::window:
        return blended(theme.secondary, theme.text, isDown() ? 1 : hover_.value());
    }
    return theme.text;
}

void Button::paintContent(QPainter& painter, const QColor& ink) const
{
    const auto& shape = shapeOf(style_);
    const auto top = (height() - shape.symbolSize) / 2;
    if (text().isEmpty()) {
        if (symbol_.has_value())
            paintSymbol(painter, *symbol_,
                { (width() - shape.symbolSize) / 2, top, shape.symbolSize, shape.symbolSize }, ink);
        return;
    }
    const auto rightToLeft = layoutDirection() == Qt::RightToLeft;
    double leading = shape.textPadding;
    if (symbol_.has_value()) {
        const double left = rightToLeft ? width() - Metrics::buttonSymbolPadding - shape.symbolSize
                                        : Metrics::buttonSymbolPadding;
        paintSymbol(painter, *symbol_, { left, top, shape.symbolSize, shape.symbolSize }, ink);
        leading = Metrics::buttonSymbolPadding + shape.symbolSize + Metrics::buttonSymbolGap;
    }
    const auto left = rightToLeft ? width() - leading - textWidth_ : leading;
    paintText(painter, { left, baseline() }, text(), font_, ink);
}

Button* prominentButton(const QString& text, Symbol symbol)
{
    return new Button(ButtonStyle::prominent, text, symbol);
}

Button* borderedIcon(Symbol symbol, const QString& name)
{
    auto* button = new Button(ButtonStyle::bordered, {}, symbol);
    button->setAccessibleName(name);
    return button;
}

Button* borderlessButton(const QString& text)
{
    return new Button(ButtonStyle::borderless, text, std::nullopt);
}

Button* destructiveIcon(Symbol symbol, const QString& name)
{
    auto* button = new Button(ButtonStyle::destructive, {}, symbol);
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

Button* menuButton(const QString& name)
{
    auto* button = new Button(ButtonStyle::menu, {}, Symbol::ellipsis);
    button->setAccessibleName(name);
    return button;
}

Button* windowButton(Symbol symbol, const QString& name)
{
    auto* button = new Button(ButtonStyle::window, {}, symbol);
    button->setAccessibleName(name);
    // As in a frame of the desktop's.
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

} // namespace platform
