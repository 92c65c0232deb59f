// The clipboard of the desktop through the toolkit.
#pragma once

#include "Pasteboard.h"

namespace platform {

/// Writes to the clipboard; needs a running application.
class QtPasteboard final : public Pasteboard {
public:
    void write(const ColorContent& content) override;
};

} // namespace platform
