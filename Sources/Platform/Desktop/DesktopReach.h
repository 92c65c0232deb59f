// Whether there is a display to appear on.
#pragma once

namespace platform {

/// True if an X server or a Wayland compositor answers where the environment says, or the toolkit
/// has been told to use something else. Asked before the toolkit is, which ends the process when
/// there is none.
[[nodiscard]] bool isDesktopReachable();

} // namespace platform
