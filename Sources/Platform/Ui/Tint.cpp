#include "Tint.h"

#include "Theme.h"

#include <QWidget>

namespace platform {

Tint blended(const Tint& from, const Tint& to, double progress)
{
    Tint tint;
    for (const auto field :
        { &Tint::fill, &Tint::ink, &Tint::text, &Tint::focusRing, &Tint::overlay })
        tint.*field = blended(from.*field, to.*field, progress);
    tint.stroked = to.stroked;
    return tint;
}

QColor edgeOf(const Tint& tint)
{
    constexpr double edgeOpacity = 0.18;
    return tint.stroked ? faded(tint.ink, edgeOpacity) : QColor(Qt::transparent);
}

Tint neutralTint(const Theme& theme)
{
    return { .fill = composited(theme.controlHover, theme.menuBackground),
        .ink = theme.text,
        .text = theme.text,
        .focusRing = theme.text,
        .overlay = theme.text };
}

void applyTint(QWidget& root, const Tint& tint)
{
    if (auto* tinted = dynamic_cast<Tinted*>(&root))
        tinted->setTint(tint);
    for (auto* child : root.children()) {
        if (child->isWidgetType())
            applyTint(*static_cast<QWidget*>(child), tint);
    }
}

} // namespace platform
