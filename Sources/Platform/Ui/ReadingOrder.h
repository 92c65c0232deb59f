// The way of the Tab key through what is made late, reused and switched.
#pragma once

class QWidget;

namespace platform {

/// Moves the keyboard focus to the next or previous control below `root` as one reads: parts from
/// top to bottom, those side by side from the leading edge, each with all of its controls before
/// the next part; after the last comes the first. Scrolls the control into sight. When the focused
/// one is being hidden, the focus goes to the control before it. False when there is no control.
///
/// For `focusNextPrevChild`: the toolkit's own order is that of making.
bool moveFocusInReadingOrder(QWidget& root, bool next);

} // namespace platform
