#include "X11Window.h"

#include <xcb/xfixes.h>

#include <array>
#include <cstdint>

namespace platform {

void leaveOutOfTaskbar(const X11Display& display, xcb_window_t window)
{
    const std::array states { display.atom("_NET_WM_STATE_SKIP_TASKBAR"),
        display.atom("_NET_WM_STATE_SKIP_PAGER"), display.atom("_NET_WM_STATE_ABOVE") };
    xcb_change_property(display.connection(), XCB_PROP_MODE_REPLACE, window,
        display.atom("_NET_WM_STATE"), XCB_ATOM_ATOM, /*format=*/32, states.size(), states.data());
}

void setFrameMargins(const X11Display& display, xcb_window_t window, const QMargins& margins)
{
    const std::array<std::uint32_t, 4> extents { static_cast<std::uint32_t>(margins.left()),
        static_cast<std::uint32_t>(margins.right()), static_cast<std::uint32_t>(margins.top()),
        static_cast<std::uint32_t>(margins.bottom()) };
    xcb_change_property(display.connection(), XCB_PROP_MODE_REPLACE, window,
        display.atom("_GTK_FRAME_EXTENTS"), XCB_ATOM_CARDINAL, /*format=*/32, extents.size(),
        extents.data());
}

void setInputRect(const X11Display& display, xcb_window_t window, const QRect& rect)
{
    const xcb_rectangle_t inside { static_cast<std::int16_t>(rect.x()),
        static_cast<std::int16_t>(rect.y()), static_cast<std::uint16_t>(rect.width()),
        static_cast<std::uint16_t>(rect.height()) };
    auto* connection = display.connection();
    // The server refuses requests of an extension whose version nobody has asked for.
    xcb_discard_reply(connection,
        xcb_xfixes_query_version(connection, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION)
            .sequence);
    const auto region = xcb_generate_id(connection);
    xcb_xfixes_create_region(connection, region, 1, &inside);
    constexpr std::uint8_t inputShape = 2; // ShapeInput of the SHAPE extension
    xcb_xfixes_set_window_shape_region(connection, window, inputShape, 0, 0, region);
    xcb_xfixes_destroy_region(connection, region);
}

} // namespace platform
