#include "X11Grab.h"

#include "XcbReply.h"

#include <cstdint>

namespace platform {

namespace {

constexpr std::uint16_t pointerEvents
    = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION;

} // namespace

bool X11Grab::acquire()
{
    xcb_connection_t* connection = display_.connection();
    const auto pointerCookie
        = xcb_grab_pointer(connection, /*owner_events=*/0, display_.root(), pointerEvents,
            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const auto keyboardCookie = xcb_grab_keyboard(connection, /*owner_events=*/0, display_.root(),
        XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const XcbReply<xcb_grab_pointer_reply_t> pointer(
        xcb_grab_pointer_reply(connection, pointerCookie, nullptr));
    const XcbReply<xcb_grab_keyboard_reply_t> keyboard(
        xcb_grab_keyboard_reply(connection, keyboardCookie, nullptr));
    held_ = true;
    if (pointer && pointer->status == XCB_GRAB_STATUS_SUCCESS && keyboard
        && keyboard->status == XCB_GRAB_STATUS_SUCCESS)
        return true;
    release();
    return false;
}

void X11Grab::setCursor(xcb_cursor_t cursor)
{
    xcb_change_active_pointer_grab(display_.connection(), cursor, XCB_CURRENT_TIME, pointerEvents);
}

void X11Grab::release()
{
    if (!held_)
        return;
    held_ = false;
    xcb_ungrab_pointer(display_.connection(), XCB_CURRENT_TIME);
    xcb_ungrab_keyboard(display_.connection(), XCB_CURRENT_TIME);
    xcb_flush(display_.connection());
}

} // namespace platform
