// The shared "Colors" window.
#pragma once

namespace platform {

/// The desktop's one colour panel.
class ColorPanel {
public:
    virtual ~ColorPanel() = default;

    /// Shows the panel in front of the application's other windows.
    virtual void orderFront() = 0;
};

} // namespace platform
