#include "Separator.h"

#include "Accessibility.h"
#include "Shapes.h"
#include "ThemeSource.h"

#include <QPainter>

namespace platform {

Separator::Separator(int leading, int trailing, QWidget* parent)
    : QWidget(parent)
    , leading_(leading)
    , trailing_(trailing)
{
    setAccessibleRole(*this, QAccessible::Separator);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize Separator::sizeHint() const
{
    return { leading_ + trailing_, 1 };
}

void Separator::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const auto left = layoutDirection() == Qt::LeftToRight ? leading_ : trailing_;
    const QRectF line(left, 0, width() - leading_ - trailing_, height());
    fillSharp(painter, line, currentTheme().separator);
}

} // namespace platform
