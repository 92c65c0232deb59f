#include "FloatingPlate.h"

#include "Shapes.h"
#include "ThemeSource.h"

#include <QPainter>

namespace platform {

namespace {

constexpr double outlineWidth = 0.75;

} // namespace

void FloatingPlate::paint(QPainter& painter, const QRectF& plate)
{
    const auto& theme = currentTheme();
    const auto strength = theme.appearance == Appearance::light ? 1.0 : 2.0;
    for (auto* layer : { &far_, &near_ })
        layer->shadow.paint(painter, plate.translated(0, layer->drop.offset),
            faded(Qt::black, layer->drop.opacity * strength));
    paintPlate(painter, plate, radius_, theme.menuBackground);
    paintPlate(painter, plate.adjusted(-outlineWidth, -outlineWidth, outlineWidth, outlineWidth),
        radius_ + outlineWidth, Qt::transparent, theme.menuOutline, outlineWidth);
}

} // namespace platform
