#include "DesktopSession.h"

#include "Directories.h"

namespace platform {

bool isWaylandSession()
{
    const auto variable = processEnvironment();
    return !variable("WAYLAND_DISPLAY").value_or("").empty()
        || variable("XDG_SESSION_TYPE") == "wayland";
}

} // namespace platform
