// The item's menu, for trays that leave it to the program.
#pragma once

#include "PopupMenu.h"

namespace platform {

/// A window that holds a menu and nothing else, opened at a place of the screen. It deletes itself
/// when the menu is closed.
class TrayMenu : public QWidget {
public:
    static void open(const QPoint& place, const QString& name, std::vector<MenuItem> items);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    TrayMenu();
};

} // namespace platform
