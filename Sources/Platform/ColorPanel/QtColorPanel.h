// The "Colors" window on a Qt desktop.
#pragma once

#include "ColorList.h"
#include "ColorPanel.h"
#include "Pasteboard.h"

#include <functional>
#include <memory>
#include <string>

class QColor;

namespace platform {

struct ColorPanelServices {
    /// Outlives the panel.
    Pasteboard& pasteboard;
    ColorListRegistry registry;
    /// The ink that can be read on a fill.
    std::function<QColor(const QColor& fill)> inkOn;
    /// The list that the panel opens with, if it is there.
    std::string firstList;
};

/// The panel's window is made when it is first shown.
[[nodiscard]] std::unique_ptr<ColorPanel> makeColorPanel(ColorPanelServices services);

} // namespace platform
