// One colour of a list.
#include "ColorRow.h"

#include "ColorDrag.h"
#include "Fonts.h"
#include "Shapes.h"
#include "TextPainting.h"
#include "ThemeSource.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPointer>

namespace platform {

namespace {

constexpr double rowRadius = 7;
constexpr double swatch = 20;
constexpr double swatchRadius = 5;
constexpr double leading = 8;
constexpr double gap = 10;
constexpr double trailing = 10;
constexpr double dragDistance = 3;
constexpr TextStyle nameStyle { .size = 12, .weight = QFont::Medium };
constexpr TextStyle hexStyle { .size = 11, .design = FontDesign::monospaced };

void drawLine(QPainter& painter, const TextStyle& style, double x, double rowHeight,
    const QColor& color, const QString& text)
{
    const double top = (rowHeight - lineHeightOf(style)) / 2;
    paintText(painter, { x, top + baselineOf(style) }, text, fontOf(style), color);
}

} // namespace

QString hexText(const QColor& color)
{
    return color.name().toUpper();
}

ColorRow::ColorRow(std::function<void()> chosen, QWidget* parent)
    : QWidget(parent)
    , chosen_(std::move(chosen))
{
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::OpenHandCursor);
}

void ColorRow::show(const ColorRowState& state)
{
    if (state == state_)
        return;
    state_ = state;
    setAccessibleName(state.name + QStringLiteral(", ") + hexText(state.color));
    update();
}

void ColorRow::paintSwatch(QPainter& painter, const QRectF& box) const
{
    if (state_.color.alpha() < 255) {
        painter.save();
        painter.setClipPath(smoothRoundedRect(box, swatchRadius));
        paintChecker(painter, box, QColor(0xFF, 0xFF, 0xFF), QColor(0xC4, 0xC4, 0xCA));
        painter.restore();
    }
    const auto edge = state_.selected ? faded(state_.ink, 0.5) : currentTheme().swatchEdge;
    paintPlate(painter, box, swatchRadius, state_.color, edge, state_.selected ? 1 : 0.75);
}

void ColorRow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const auto& theme = currentTheme();
    auto opaque = state_.color;
    opaque.setAlpha(255);
    if (state_.selected)
        paintPlate(painter, rect(), rowRadius, opaque);
    else if (hasFocus())
        paintPlate(painter, rect(), rowRadius, theme.controlHover);
    paintSwatch(painter, { leading, (height() - swatch) / 2, swatch, swatch });

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

void ColorRow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        press_ = event->position();
}

void ColorRow::mouseMoveEvent(QMouseEvent* event)
{
    if (!press_ || QLineF(*press_, event->position()).length() <= dragDistance)
        return;
    press_.reset();
    const ColorContent content { { state_.color.redF(), state_.color.greenF(), state_.color.blueF(),
                                     state_.color.alphaF() },
        hexText(state_.color).toStdString() };
    // The row may be gone when this returns.
    runColorDrag(content, dragPicture());
}

void ColorRow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && std::exchange(press_, std::nullopt))
        chosen_();
}

void ColorRow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Space)
        chosen_();
    else
        QWidget::keyPressEvent(event);
}

QPixmap ColorRow::dragPicture() const
{
    constexpr int sideSpace = 28;
    const auto ratio = devicePixelRatioF();
    QPixmap picture(QSize(sideSpace, sideSpace) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paintSwatch(painter, QRectF(1, 1, sideSpace - 2, sideSpace - 2));
    return picture;
}

} // namespace platform
