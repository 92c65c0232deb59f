#include "NativeColorSwatch.h"

#include "ColorDrag.h"
#include "ColorMimeData.h"
#include "MacColorIntegration.h"
#include "NativeColorSwatchAccessible.h"
#include "Shapes.h"
#include "ThemeSource.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPointer>

#include <cmath>

namespace tintwell {

namespace {

constexpr double clickReach = 3.0;
constexpr double edgeWidth = 0.75;
constexpr const char* tooltipSuffix = " — click to copy, drag to use";
constexpr const char* help
    = "Click to copy this color, or drag it into a compatible color control.";

/// The checker as a brush: a clip would leave the rounded corners without smooth edges.
QBrush checkerBrush(const QRectF& rect, double pixelRatio)
{
    const auto& theme = platform::currentTheme();
    QPixmap pixmap((rect.size() * pixelRatio).toSize().expandedTo({ 1, 1 }));
    pixmap.setDevicePixelRatio(pixelRatio);
    QPainter painter(&pixmap);
    platform::paintChecker(painter, rect, theme.fieldBackground,
        platform::composited(theme.separator, theme.fieldBackground));
    painter.end();
    return pixmap;
}

void paintSwatch(QPainter& painter, const QRectF& rect, double radius, const platform::Color& color)
{
    const QColor fill = platform::toQColor(color);
    painter.setRenderHint(QPainter::Antialiasing);
    if (fill.alpha() < 255)
        painter.fillPath(platform::smoothRoundedRect(rect, radius),
            checkerBrush(rect, painter.device()->devicePixelRatioF()));
    platform::paintPlate(
        painter, rect, radius, fill, platform::currentTheme().swatchEdge, edgeWidth);
}

/// What hangs under the pointer during a drag.
QPixmap dragPicture(const platform::Color& color, double pixelRatio)
{
    constexpr QRectF frame(0, 0, 36, 36);
    constexpr double radius = 9;
    QPixmap pixmap((frame.size() * pixelRatio).toSize());
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paintSwatch(painter, frame, radius, color);
    return pixmap;
}

/// Where an event lies in the view. The position in the window is the one that the toolkit does not
/// round to whole points.
QPointF locationIn(const QWidget& view, const QMouseEvent& event)
{
    return view.mapFrom(view.window(), event.scenePosition());
}

} // namespace

DraggableColorView::DraggableColorView(platform::Color color, const std::string& label,
    double cornerRadius, std::function<void()> onClick, QWidget* parent)
    : QWidget(parent)
    , color_(std::move(color))
    , paintedColor_(color_)
    , cornerRadius_(cornerRadius)
    , onClick_(std::move(onClick))
{
    installSwatchAccessibility();
    setCursor(Qt::OpenHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setLabel(label);
}

void DraggableColorView::setColor(const platform::Color& color)
{
    color_ = color;
    setPaintedColor(color);
}

void DraggableColorView::setPaintedColor(const platform::Color& color)
{
    if (color == paintedColor_)
        return;
    paintedColor_ = color;
    update();
}

void DraggableColorView::setLabel(const std::string& label)
{
    label_ = label;
    const auto text = QString::fromStdString(label);
    setToolTip(text + QString::fromUtf8(tooltipSuffix));
    setAccessibleName(text);
    setAccessibleDescription(QString::fromUtf8(help));
}

void DraggableColorView::setCornerRadius(double cornerRadius)
{
    if (cornerRadius == cornerRadius_)
        return;
    cornerRadius_ = cornerRadius;
    update();
}

bool DraggableColorView::accessibilityPerformPress()
{
    // The callback may replace itself or take the view away.
    if (const auto onClick = onClick_)
        onClick();
    return true;
}

void DraggableColorView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    paintSwatch(painter, rect(), cornerRadius_, paintedColor_);
}

void DraggableColorView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    mouseDownLocation_ = locationIn(*this, *event);
    didBeginDrag_ = false;
}

void DraggableColorView::mouseMoveEvent(QMouseEvent* event)
{
    if (didBeginDrag_ || !mouseDownLocation_)
        return;
    const QPointF moved = locationIn(*this, *event) - *mouseDownLocation_;
    if (std::hypot(moved.x(), moved.y()) <= clickReach)
        return;
    didBeginDrag_ = true;
    runDrag();
}

void DraggableColorView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const bool isClick = mouseDownLocation_ && !didBeginDrag_;
    endPress();
    if (isClick)
        accessibilityPerformPress();
}

void DraggableColorView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            accessibilityPerformPress();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void DraggableColorView::hideEvent(QHideEvent* event)
{
    // A view that vanishes under the pointer gets no release.
    if (!didBeginDrag_)
        endPress();
    QWidget::hideEvent(event);
}

void DraggableColorView::endPress()
{
    mouseDownLocation_.reset();
    didBeginDrag_ = false;
}

void DraggableColorView::runDrag()
{
    const auto color = fromPlatformColor(color_);
    if (!color)
        return;
    const QPointer<DraggableColorView> self(this);
    platform::runColorDrag({ color_, color->hex() }, dragPicture(color_, devicePixelRatioF()));
    // The drag took the release; one that comes all the same must not count as a click.
    if (self)
        endPress();
}

std::unique_ptr<DraggableColorView> NativeColorSwatch::makeNSView() const
{
    return std::make_unique<DraggableColorView>(
        toPlatformColor(color), label, cornerRadius, onClick);
}

void NativeColorSwatch::updateNSView(DraggableColorView& view) const
{
    view.setColor(toPlatformColor(color));
    view.setLabel(label);
    view.setCornerRadius(cornerRadius);
    view.setOnClick(onClick);
    view.update();
}

} // namespace tintwell
