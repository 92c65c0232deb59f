#include "Label.h"

#include "TextPainting.h"
#include "Tip.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>

#include <chrono>
#include <cmath>

namespace platform {

Label::Label(const TextStyle& style, QColor Theme::*color, const QString& text, QWidget* parent)
    : QWidget(parent)
    , style_(style)
    , font_(fontOf(style))
    , baseline_(baselineOf(style))
    , color_(color)
{
    setAccessibleRole(*this, QAccessible::StaticText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setText(text);
}

void Label::setText(const QString& text)
{
    if (text == text_)
        return;
    text_ = text;
    textWidth_ = QFontMetricsF(font_).horizontalAdvance(text_);
    readMark_.tell(*this, QAccessible::NameChanged);
    wrap();
    updateGeometry();
    update();
}

const QString& Label::readText()
{
    readMark_.setRead();
    return text_;
}

void Label::setAlignment(Qt::Alignment horizontal)
{
    alignment_ = horizontal;
    update();
}

void Label::setWrapWidth(int points)
{
    wrapWidth_ = points;
    wrap();
    updateGeometry();
}

QSize Label::sizeHint() const
{
    const auto lineHeight = lineHeightOf(style_);
    if (wrapWidth_ > 0)
        return { wrapWidth_, lineHeight * static_cast<int>(lines_.size()) };
    return { static_cast<int>(std::ceil(textWidth_)), lineHeight };
}

void Label::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const auto color = this->color();
    if (wrapWidth_ == 0) {
        paintLine(painter, fitted(text_), 0, color);
        return;
    }
    const auto lineHeight = lineHeightOf(style_);
    for (int i = 0; i < lines_.size(); ++i)
        paintLine(painter, lines_[i], i * lineHeight, color);
}

bool Label::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && fitted(text_) != text_) {
        Tip::show(*this, static_cast<QHelpEvent*>(event)->globalPos(), text_);
        return true;
    }
    return QWidget::event(event);
}

QString Label::fitted(const QString& text) const
{
    if (wrapWidth_ > 0)
        return text;
    const QFontMetricsF metrics(font_);
    // The hint was rounded up, so anything wider has been squeezed.
    return metrics.horizontalAdvance(text) <= width()
        ? text
        : metrics.elidedText(text, Qt::ElideRight, width());
}

void Label::paintLine(QPainter& painter, const QString& line, double top, const QColor& color) const
{
    const auto alignment = QStyle::visualAlignment(layoutDirection(), alignment_);
    auto left = 0.0;
    if (!alignment.testFlag(Qt::AlignLeft)) {
        const auto rest = width() - QFontMetricsF(font_).horizontalAdvance(line);
        left = alignment.testFlag(Qt::AlignRight) ? rest : rest / 2;
    }
    paintText(painter, { left, top + baseline_ }, line, font_, color);
}

StatusLine::StatusLine(const TextStyle& style, QColor Theme::*color)
    : Label(style, color)
{
    setAccessibleRole(*this, QAccessible::Notification);
    announcement_.setSingleShot(true);
    // Readers speak a notification when it appears; that a text has changed they keep to
    // themselves.
    connect(&announcement_, &QTimer::timeout, this, [this] {
        QAccessibleEvent appeared(this, QAccessible::ObjectShow);
        QAccessible::updateAccessibility(&appeared);
    });
}

void StatusLine::announce(const QString& text)
{
    constexpr std::chrono::milliseconds longestWait { 1000 };
    setText(text);
    if (text.isEmpty())
        return announcement_.stop();
    const bool waits = isVisible() && !isActiveWindow();
    announcement_.start(waits ? longestWait : std::chrono::milliseconds(0));
}

bool StatusLine::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && announcement_.isActive())
        announcement_.start(0);
    return Label::event(event);
}

void Label::wrap()
{
    lines_ = wrapWidth_ > 0 ? wrapped(text_, font_, wrapWidth_) : QStringList();
}

} // namespace platform
