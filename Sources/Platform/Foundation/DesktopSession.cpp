#include "DesktopSession.h"

#include <cstdlib>
#include <string_view>

namespace platform {

namespace {

std::string_view variable(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? std::string_view() : std::string_view(value);
}

} // namespace

bool isWaylandSession()
{
    return !variable("WAYLAND_DISPLAY").empty() || variable("XDG_SESSION_TYPE") == "wayland";
}

} // namespace platform
