// The footer of the panel.
#pragma once

#include "Button.h"
#include "Label.h"
#include "Tint.h"
#include "TintwellModel.h"

#include <QWidget>

#include <functional>
#include <string>

namespace tintwell {

/// The status line, "Save + Install" and the menu of everything else.
class UtilityFooter : public QWidget, public platform::Tinted {
public:
    /// `openColorPanel` and `quit` are the rows of the menu.
    UtilityFooter(
        TintwellModel& model, std::function<void()> openColorPanel, std::function<void()> quit);

    void show(const std::string& status);
    void setTint(const platform::Tint& tint) override { tint_ = tint; }

private:
    void openMenu();

    TintwellModel& model_;
    std::function<void()> openColorPanel_;
    std::function<void()> quit_;
    platform::StatusLine* status_;
    platform::Button* menu_;
    platform::Tint tint_;
};

} // namespace tintwell
