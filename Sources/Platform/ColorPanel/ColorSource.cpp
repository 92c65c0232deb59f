#include "ColorSource.h"

#include "ColorDrag.h"
#include "Shapes.h"
#include "ThemeSource.h"

#include <QKeyEvent>
#include <QLineF>
#include <QMouseEvent>
#include <QPainter>

namespace platform {

namespace {

constexpr double dragDistance = 3;
constexpr int pictureSide = 28;
constexpr double pictureRadius = 5;

} // namespace

QString hexText(const QColor& color)
{
    return color.name().toUpper();
}

void paintColor(QPainter& painter, const QRectF& box, double radius, const QColor& color,
    const QColor& edge, double edgeWidth)
{
    if (color.alpha() < 255) {
        painter.save();
        painter.setClipPath(smoothRoundedRect(box, radius));
        paintChecker(painter, box, QColor(0xFF, 0xFF, 0xFF), QColor(0xC4, 0xC4, 0xCA));
        painter.restore();
    }
    paintPlate(painter, box, radius, color, edge, edgeWidth);
}

ColorSource::ColorSource(QAccessible::Role role, QWidget* parent)
    : QWidget(parent)
    , Pressable(role)
{
    installAccessibility();
    setCursor(Qt::OpenHandCursor);
}

void ColorSource::setColor(const QColor& color)
{
    color_ = color;
    update();
}

void ColorSource::press()
{
    if (pressed_)
        pressed_();
}

void ColorSource::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        pressPlace_ = event->position();
}

void ColorSource::mouseMoveEvent(QMouseEvent* event)
{
    if (!pressPlace_ || QLineF(*pressPlace_, event->position()).length() <= dragDistance)
        return;
    pressPlace_.reset();
    const ColorContent content { { color_.redF(), color_.greenF(), color_.blueF(),
                                     color_.alphaF() },
        hexText(color_).toStdString() };
    // This may be gone when the drag returns.
    runColorDrag(content, dragPicture());
}

void ColorSource::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && std::exchange(pressPlace_, std::nullopt))
        press();
}

void ColorSource::keyPressEvent(QKeyEvent* event)
{
    const bool presses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter
        || event->key() == Qt::Key_Space;
    if (presses && !event->isAutoRepeat())
        press();
    else
        QWidget::keyPressEvent(event);
}

QPixmap ColorSource::dragPicture() const
{
    const auto ratio = devicePixelRatioF();
    QPixmap picture(QSize(pictureSide, pictureSide) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paintColor(painter, QRectF(1, 1, pictureSide - 2, pictureSide - 2), pictureRadius, color_,
        currentTheme().swatchEdge, 0.75);
    return picture;
}

} // namespace platform
