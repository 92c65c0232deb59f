// The application's own windows, which leave the screen while the user picks from it.
#pragma once

#include <QPointer>
#include <QWidget>

#include <vector>

namespace tintwell {

class WindowsDuringPick {
public:
    void hide();
    /// Brings back what `hide` hid.
    void show();
    [[nodiscard]] bool areHidden() const { return !hidden_.empty(); }

private:
    std::vector<QPointer<QWidget>> hidden_;
};

} // namespace tintwell
