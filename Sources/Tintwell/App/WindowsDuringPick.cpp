#include "WindowsDuringPick.h"

#include <QApplication>

#include <utility>

namespace tintwell {

void WindowsDuringPick::hide()
{
    // The item is a window too, to the toolkit; a tray forgets one that is hidden.
    const auto isOurs = [](const QWidget& widget) {
        return widget.windowType() == Qt::Window
            && !widget.windowFlags().testFlag(Qt::BypassWindowManagerHint);
    };
    hidden_.clear();
    for (auto* widget : QApplication::topLevelWidgets())
        if (isOurs(*widget) && widget->isVisible() && !widget->isMinimized()) {
            hidden_.emplace_back(widget);
            widget->hide();
        }
}

void WindowsDuringPick::show()
{
    for (const auto& widget : std::exchange(hidden_, {}))
        if (widget != nullptr)
            widget->show();
}

} // namespace tintwell
