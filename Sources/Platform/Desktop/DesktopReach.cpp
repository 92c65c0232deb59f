#include "DesktopReach.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace platform {

namespace {

std::string variable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool hasX11()
{
    if (variable("DISPLAY").empty())
        return false;
    auto* connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

/// The socket's name is relative to the folder of the session unless it is a whole path.
bool hasWayland()
{
    auto path = variable("WAYLAND_DISPLAY");
    if (path.empty())
        return false;
    if (path.front() != '/')
        path = variable("XDG_RUNTIME_DIR") + "/" + path;
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path))
        return false;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool answers
        = connect(file, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    close(file);
    return answers;
}

} // namespace

bool isDesktopReachable()
{
    return !variable("QT_QPA_PLATFORM").empty() || !variable("WAYLAND_SOCKET").empty() || hasX11()
        || hasWayland();
}

} // namespace platform
