// One colour of a list.
#include "ColorRow.h"

#include "Fonts.h"
#include "Shapes.h"
#include "TextPainting.h"
#include "ThemeSource.h"

#include <QFontMetricsF>
#include <QPainter>

namespace platform {

namespace {

constexpr double rowRadius = 7;
constexpr double swatch = 20;
constexpr double swatchRadius = 5;
constexpr double leading = 8;
constexpr double gap = 10;
constexpr double trailing = 10;
constexpr TextStyle nameStyle { .size = 12, .weight = QFont::Medium };
constexpr TextStyle hexStyle { .size = 11, .design = FontDesign::monospaced };

void drawLine(QPainter& painter, const TextStyle& style, double x, double rowHeight,
    const QColor& color, const QString& text)
{
    const double top = (rowHeight - lineHeightOf(style)) / 2;
    paintText(painter, { x, top + baselineOf(style) }, text, fontOf(style), color);
}

} // namespace

ColorRow::ColorRow(QWidget* parent)
    : ColorSource(QAccessible::ListItem, parent)
{
}

void ColorRow::show(const ColorRowState& state)
{
    if (state == state_)
        return;
    state_ = state;
    setColor(state.color);
    setAccessibleName(state.name + QStringLiteral(", ") + hexText(state.color));
}

void ColorRow::describe(QAccessible::State& state) const
{
    state.selectable = true;
    state.selected = state_.selected;
    state.focusable = true;
    state.focused = state_.current;
}

void ColorRow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const auto& theme = currentTheme();
    auto opaque = state_.color;
    opaque.setAlpha(255);
    if (state_.selected)
        paintPlate(painter, rect(), rowRadius, opaque);
    if (state_.current)
        paintPlate(painter, rect(), rowRadius, Qt::transparent,
            state_.selected ? state_.ink : theme.secondary, 2);
    paintColor(painter, { leading, (height() - swatch) / 2, swatch, swatch }, swatchRadius,
        state_.color, state_.selected ? faded(state_.ink, 0.5) : theme.swatchEdge,
        state_.selected ? 1 : 0.75);

    const auto hex = hexText(state_.color);
    const double hexWidth = QFontMetricsF(fontOf(hexStyle)).horizontalAdvance(hex);
    const double hexX = width() - trailing - hexWidth;
    const double nameX = leading + swatch + gap;
    const auto name = QFontMetricsF(fontOf(nameStyle))
                          .elidedText(state_.name, Qt::ElideRight, hexX - gap - nameX);
    drawLine(painter, nameStyle, nameX, height(), state_.selected ? state_.ink : theme.text, name);
    drawLine(painter, hexStyle, hexX, height(),
        state_.selected ? faded(state_.ink, 0.8) : theme.tertiary, hex);
}

} // namespace platform
