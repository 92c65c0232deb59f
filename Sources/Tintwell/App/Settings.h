// What the user has decided about the program itself, kept from one run to the next.
#pragma once

#include <QSettings>

namespace tintwell {

/// "Tintwell/Tintwell.ini" in the user's folder for configuration; written at each change.
class Settings {
public:
    Settings();

    /// The panel stays when another window takes the focus.
    [[nodiscard]] bool keepsOpen() const { return keepsOpen_; }
    void setKeepsOpen(bool keepsOpen);

    /// The desktop may ask for the key of the screen pick: the user has not turned that down.
    [[nodiscard]] bool offersShortcut() const { return offersShortcut_; }
    void setOffersShortcut(bool offersShortcut);

private:
    QSettings file_;
    bool keepsOpen_;
    bool offersShortcut_;
};

} // namespace tintwell
