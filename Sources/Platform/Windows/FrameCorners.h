// The round corners of a window's content.
#pragma once

#include "PanelFrame.h"

#include <array>

class QWidget;

namespace platform {

/// Four squares that lie over the content and make its corners round.
class FrameCorners {
public:
    /// `window` owns them; `frame` outlives them.
    FrameCorners(QWidget& window, const PanelFrame& frame);

    /// Lays them over the corners of `panel`; hides them where the frame has none.
    void layOut(const QRect& panel);

private:
    class Corner;

    const PanelFrame& frame_;
    std::array<Corner*, 4> corners_;
};

} // namespace platform
