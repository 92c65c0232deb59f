// The "Colors" window on a Qt desktop.
#pragma once

#include "ColorList.h"
#include "ColorPanel.h"
#include "Pasteboard.h"

#include <functional>
#include <memory>

class QColor;

namespace platform {

struct ColorPanelServices {
    /// Outlives the panel.
    Pasteboard& pasteboard;
    ColorListRegistry registry;
    /// The ink that can be read on a fill.
    std::function<QColor(const QColor& fill)> inkOn;
};

/// The panel's window is made when it is first shown.
[[nodiscard]] std::unique_ptr<ColorPanel> makeColorPanel(ColorPanelServices services);

} // namespace platform
