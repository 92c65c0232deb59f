// The desktop's file dialog for a palette that goes to other tools.
#pragma once

#include "RGBAColor.h"

class QWidget;

namespace tintwell {

/// Asks in front of `owner`'s window where the palette of `source` goes and writes that file; its
/// ending tells the format, without one the filter that is chosen does. A second dialog says why a
/// file could not be written.
void openExportDialog(QWidget& owner, const RGBAColor& source);

} // namespace tintwell
