// The footer of the panel.
#pragma once

#include "Button.h"
#include "Label.h"
#include "Tint.h"
#include "TintwellModel.h"

#include <QWidget>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace tintwell {

/// The status line, "Save + Install" and the menu of everything else.
class UtilityFooter : public QWidget, public platform::Tinted {
public:
    /// `openColorPanel` and `quit` are the rows of the menu.
    UtilityFooter(
        TintwellModel& model, std::function<void()> openColorPanel, std::function<void()> quit);

    /// A status of a new number is read out, also when its text is the same.
    void show(const std::string& status, std::size_t number);
    void setTint(const platform::Tint& tint) override { tint_ = tint; }

private:
    void openMenu();

    TintwellModel& model_;
    std::function<void()> openColorPanel_;
    std::function<void()> quit_;
    platform::StatusLine* status_;
    std::optional<std::size_t> shownNumber_;
    platform::Button* menu_;
    platform::Tint tint_;
};

} // namespace tintwell
