// The services of the desktop that all panels of the process share.
#pragma once

namespace tintwell {

struct DesktopServices { };

} // namespace tintwell
