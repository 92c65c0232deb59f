#include "ThemePreview.h"

#include "Accessibility.h"
#include "Fonts.h"
#include "QtColor.h"
#include "Shapes.h"
#include "TextPainting.h"
#include "Theme.h"

#include <QFontMetricsF>
#include <QPainter>

namespace tintwell {

namespace {

using platform::TextStyle;

constexpr double outerPadding = 7;
constexpr double outerRadius = 18;
constexpr double innerPadding = 15;
constexpr double innerRadius = 14;
constexpr double rowSpacing = 5;
constexpr double outlineWidth = 0.75;
constexpr double outlineOpacity = 0.1;
constexpr double subtitleOpacity = 0.72;
constexpr double dotSize = 7;
constexpr double dotGap = 6;
constexpr double pillPaddingX = 14;
constexpr double pillPaddingY = 8;

const TextStyle titleStyle { .size = 14, .weight = QFont::DemiBold };
const TextStyle subtitleStyle { .size = 11 };
const TextStyle activeStyle { .size = 10, .weight = QFont::Medium };
const TextStyle actionStyle { .size = 11, .weight = QFont::DemiBold };

void drawText(QPainter& painter, const QPointF& topLeft, const QString& text,
    const TextStyle& style, const QColor& color)
{
    platform::paintText(painter, { topLeft.x(), topLeft.y() + platform::baselineOf(style) }, text,
        platform::fontOf(style), color);
}

double contentHeight()
{
    return platform::lineHeightOf(titleStyle) + platform::lineHeightOf(subtitleStyle)
        + platform::lineHeightOf(activeStyle) + 2 * rowSpacing;
}

} // namespace

ThemePreview::ThemePreview()
{
    platform::setAccessibleRole(*this, QAccessible::Graphic);
    setAccessibleName(QStringLiteral("Interface preview"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ThemePreview::show(const PreviewState& state)
{
    if (state == shown_)
        return;
    shown_ = state;
    update();
}

QSize ThemePreview::sizeHint() const
{
    return { 0, qRound(contentHeight() + 2 * (outerPadding + innerPadding)) };
}

void ThemePreview::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outer = rect();
    const auto inner = outer.adjusted(outerPadding, outerPadding, -outerPadding, -outerPadding);
    const auto text = toQColor(shown_.text);
    platform::paintPlate(painter, outer, outerRadius, toQColor(shown_.outerFill),
        platform::faded(toQColor(shown_.outline), outlineOpacity), outlineWidth);
    platform::paintPlate(painter, inner, innerRadius, toQColor(shown_.innerFill));

    QPointF at = inner.topLeft() + QPointF(innerPadding, innerPadding);
    drawText(painter, at, QStringLiteral("Interface preview"), titleStyle, text);
    at.ry() += platform::lineHeightOf(titleStyle) + rowSpacing;
    drawText(painter, at, QStringLiteral("Readable hierarchy, restrained color."), subtitleStyle,
        platform::faded(text, subtitleOpacity));
    at.ry() += platform::lineHeightOf(subtitleStyle) + rowSpacing;
    const double activeHeight = platform::lineHeightOf(activeStyle);
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQColor(shown_.dot));
    painter.drawEllipse(QRectF(at.x(), at.y() + (activeHeight - dotSize) / 2, dotSize, dotSize));
    drawText(painter, at + QPointF(dotSize + dotGap, 0), QStringLiteral("Active palette"),
        activeStyle, text);

    const auto action = QStringLiteral("Action");
    const double actionWidth
        = QFontMetricsF(platform::fontOf(actionStyle)).horizontalAdvance(action);
    const QSizeF pillSize(
        actionWidth + 2 * pillPaddingX, platform::lineHeightOf(actionStyle) + 2 * pillPaddingY);
    const QRectF pill(QPointF(inner.right() - innerPadding - pillSize.width(),
                          inner.center().y() - pillSize.height() / 2),
        pillSize);
    painter.fillPath(platform::capsule(pill), toQColor(shown_.actionFill));
    drawText(painter, pill.topLeft() + QPointF(pillPaddingX, pillPaddingY), action, actionStyle,
        toQColor(shown_.actionText));
}

} // namespace tintwell
