#include "DesktopSession.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace platform {
namespace {

TEST(DesktopSession, IsWaylandByEitherVariable)
{
    const struct {
        const char* display;
        const char* type;
        bool isWayland;
    } rows[] = {
        { "", "x11", false },
        { "", "", false },
        { "", "tty", false },
        { "wayland-0", "wayland", true },
        { "wayland-0", "", true },
        { "", "wayland", true },
    };
    for (const auto& row : rows) {
        ::setenv("WAYLAND_DISPLAY", row.display, 1);
        ::setenv("XDG_SESSION_TYPE", row.type, 1);
        EXPECT_EQ(isWaylandSession(), row.isWayland) << row.display << ", " << row.type;
    }
}

} // namespace
} // namespace platform
