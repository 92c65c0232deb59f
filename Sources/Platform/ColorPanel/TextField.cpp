#include "TextField.h"

#include "Shapes.h"
#include "ThemeSource.h"

#include <QPainter>

namespace platform {

namespace {

/// What QLineEdit adds to the margins on either side by itself.
constexpr int ownMargin = 2;

} // namespace

TextField::TextField(
    const TextStyle& style, double radius, int leading, int trailing, QWidget* parent)
    : QLineEdit(parent)
    , radius_(radius)
{
    setFont(fontOf(style));
    setFrame(false);
    setTextMargins(leading - ownMargin, 0, trailing - ownMargin, 0);
    // The plate is painted below.
    auto transparent = palette();
    transparent.setColor(QPalette::Base, Qt::transparent);
    setPalette(transparent);
}

void TextField::paintEvent(QPaintEvent* event)
{
    {
        QPainter painter(this);
        const auto& theme = currentTheme();
        paintPlate(painter, rect(), radius_, theme.fieldBackground,
            hasFocus() ? theme.tertiary : theme.controlStroke);
    }
    QLineEdit::paintEvent(event);
}

} // namespace platform
