// Whether the desktop application starts when the user logs in.
#pragma once

#include "Report.h"

#include <string>

namespace tintwell {

/// `change` is "on", "off" or "status". The entry lies in the user's autostart folder, with the
/// switch of a start that opens no window.
[[nodiscard]] Report changeAutostart(const std::string& change);

} // namespace tintwell
