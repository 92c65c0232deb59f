// The "Colors" window: a colour mixed by wheel, sliders or numbers, beside the user's colour lists.
#pragma once

#include "ColorList.h"
#include "Pasteboard.h"

#include <functional>
#include <memory>
#include <string>

class QColor;

namespace platform {

class ColorPanelWindow;

struct ColorPanelServices {
    /// Outlives the panel.
    Pasteboard& pasteboard;
    ColorListRegistry registry;
    /// The ink that can be read on a fill.
    std::function<QColor(const QColor& fill)> inkOn;
    /// The list that the panel opens with, if it is there.
    std::string firstList;
};

/// The desktop's one colour panel. Its window is made when it is first shown.
class ColorPanel {
public:
    explicit ColorPanel(ColorPanelServices services);
    ~ColorPanel();

    /// Shows the panel in front of the application's other windows.
    /// It begins with `source`; `use` is told a colour that is to become the source.
    void orderFront(const QColor& source, std::function<void(const QColor&)> use);

private:
    ColorPanelServices services_;
    std::unique_ptr<ColorPanelWindow> window_;
};

} // namespace platform
