// Which display server the user's session runs.
#pragma once

namespace platform {

/// True for a Wayland session, even to an application that runs on X11 inside it: the X server
/// there knows of nothing but its own windows and the pointer over them.
[[nodiscard]] bool isWaylandSession();

} // namespace platform
