// The clipboard of the desktop through the toolkit.
#pragma once

#include "Pasteboard.h"

namespace platform {

/// The clipboard; needs a running application.
class QtPasteboard final : public Pasteboard {
public:
    void write(const ColorContent& content) override;
    [[nodiscard]] Result<PastedContent> read() const override;
};

} // namespace platform
