#include "LoupeWindow.h"

#include <QRegion>

#include <array>
#include <cstdint>
#include <string_view>

namespace platform {

std::unique_ptr<LoupeWindow> LoupeWindow::freeze(const X11Display& display)
{
    const QRect geometry = display.rootGeometry();
    if (geometry.isEmpty() || display.pictureFormat() == QImage::Format_Invalid)
        return nullptr;
    std::unique_ptr<LoupeWindow> window(new LoupeWindow(display, geometry));
    if (window->frozen_.isNull())
        return nullptr;
    window->createCursor();
    window->createWindow();
    return window;
}

LoupeWindow::LoupeWindow(const X11Display& display, const QRect& geometry)
    : display_(display)
    , geometry_(geometry)
    , background_(xcb_generate_id(display.connection()))
    , context_(xcb_generate_id(display.connection()))
{
    xcb_connection_t* connection = display_.connection();
    const auto width = static_cast<std::uint16_t>(geometry.width());
    const auto height = static_cast<std::uint16_t>(geometry.height());
    xcb_create_pixmap(
        connection, display_.screen().root_depth, background_, display_.root(), width, height);
    const std::uint32_t withWindows = XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS;
    xcb_create_gc(connection, context_, background_, XCB_GC_SUBWINDOW_MODE, &withWindows);
    xcb_copy_area(connection, display_.root(), background_, context_, 0, 0, 0, 0, width, height);
    frozen_ = display_.read(background_, geometry_);
}

LoupeWindow::~LoupeWindow()
{
    xcb_connection_t* connection = display_.connection();
    if (window_ != XCB_NONE)
        xcb_destroy_window(connection, window_);
    if (cursor_ != XCB_NONE)
        xcb_free_cursor(connection, cursor_);
    xcb_free_gc(connection, context_);
    xcb_free_pixmap(connection, background_);
    xcb_flush(connection);
}

void LoupeWindow::createCursor()
{
    xcb_connection_t* connection = display_.connection();
    const xcb_pixmap_t dot = xcb_generate_id(connection);
    xcb_create_pixmap(connection, /*depth=*/1, dot, display_.root(), 1, 1);
    const xcb_gcontext_t clear = xcb_generate_id(connection);
    const std::uint32_t nothing = 0;
    xcb_create_gc(connection, clear, dot, XCB_GC_FOREGROUND, &nothing);
    const xcb_rectangle_t all { 0, 0, 1, 1 };
    xcb_poly_fill_rectangle(connection, dot, clear, 1, &all);
    cursor_ = xcb_generate_id(connection);
    xcb_create_cursor(connection, cursor_, dot, /*mask=*/dot, 0, 0, 0, 0, 0, 0, 0, 0);
    xcb_free_gc(connection, clear);
    xcb_free_pixmap(connection, dot);
}

void LoupeWindow::createWindow()
{
    constexpr std::string_view title = "Loupe";
    xcb_connection_t* connection = display_.connection();
    window_ = xcb_generate_id(connection);
    const std::array<std::uint32_t, 4> values { background_, /*override_redirect=*/1,
        XCB_EVENT_MASK_EXPOSURE, cursor_ };
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window_, display_.root(), 0, 0,
        static_cast<std::uint16_t>(geometry_.width()),
        static_cast<std::uint16_t>(geometry_.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
        XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK | XCB_CW_CURSOR,
        values.data());
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NAME,
        XCB_ATOM_STRING, 8, title.size(), title.data());
}

bool LoupeWindow::isExposedBy(const xcb_generic_event_t& event) const
{
    return event.response_type == XCB_EXPOSE
        && reinterpret_cast<const xcb_expose_event_t&>(event).window == window_;
}

void LoupeWindow::map()
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(display_.connection(), window_, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_map_window(display_.connection(), window_);
}

void LoupeWindow::show(const LoupePicture& loupe)
{
    display_.write(
        window_, context_, loupe.image.convertToFormat(display_.pictureFormat()), loupe.topLeft);
    const QRect covers(loupe.topLeft, loupe.image.size());
    for (const QRect& left : QRegion(covered_).subtracted(covers))
        xcb_clear_area(display_.connection(), /*exposures=*/0, window_,
            static_cast<std::int16_t>(left.x()), static_cast<std::int16_t>(left.y()),
            static_cast<std::uint16_t>(left.width()), static_cast<std::uint16_t>(left.height()));
    covered_ = covers;
    xcb_flush(display_.connection());
}

} // namespace platform
