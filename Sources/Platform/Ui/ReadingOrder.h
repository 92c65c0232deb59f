// The way of the Tab key through what is made late, reused and switched.
#pragma once

class QWidget;

namespace platform {

/// Moves the keyboard focus to the next or previous control below `root` as one reads: parts from
/// top to bottom, in a line from the leading edge, what is in a part before what follows it; after
/// the last comes the first. Scrolls it into sight. When the focused control is being hidden, the
/// focus goes back to the one before it. False when there is no control.
///
/// For `focusNextPrevChild`: the toolkit's own order is that of making.
bool moveFocusInReadingOrder(QWidget& root, bool next);

} // namespace platform
