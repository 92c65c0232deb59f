#include "X11Display.h"

#include "XcbReply.h"

#include <QGuiApplication>
#include <qguiapplication_platform.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

namespace platform {

namespace {

struct PictureFormat {
    int depth;
    std::uint32_t redMask;
    int bitsPerPixel;
    QImage::Format format;
};

constexpr std::array pictureFormats {
    PictureFormat { 24, 0xff0000, 32, QImage::Format_RGB32 },
    PictureFormat { 32, 0xff0000, 32, QImage::Format_RGB32 },
    PictureFormat { 30, 0x3ff00000, 32, QImage::Format_RGB30 },
    PictureFormat { 30, 0x3ff, 32, QImage::Format_BGR30 },
    PictureFormat { 16, 0xf800, 16, QImage::Format_RGB16 },
};

std::uint32_t redMask(const xcb_screen_t& screen)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem;
         xcb_depth_next(&depth))
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem;
             xcb_visualtype_next(&visual))
            if (visual.data->visual_id == screen.root_visual)
                return visual.data->red_mask;
    return 0;
}

int bitsPerPixel(const xcb_setup_t* setup, int depth)
{
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem;
         xcb_format_next(&format))
        if (format.data->depth == depth)
            return format.data->bits_per_pixel;
    return 0;
}

} // namespace

std::optional<X11Display> X11Display::current()
{
    const auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (application == nullptr)
        return std::nullopt;
    const auto* x11 = application->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || x11->connection() == nullptr)
        return std::nullopt;
    xcb_connection_t* connection = x11->connection();
    char* host = nullptr;
    int display = 0;
    int number = 0;
    if (xcb_parse_display(nullptr, &host, &display, &number) == 0)
        number = 0;
    std::free(host);
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int index = 0; index < number && screens.rem > 1; ++index)
        xcb_screen_next(&screens);
    return X11Display(connection, screens.data, number);
}

xcb_atom_t X11Display::atom(const std::string& name) const
{
    const auto cookie = xcb_intern_atom(
        connection_, /*only_if_exists=*/0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const XcbReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection_, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<std::byte> X11Display::rootProperty(const std::string& name) const
{
    constexpr std::uint32_t longestInWords = 4U << 20U;
    const auto cookie = xcb_get_property(
        connection_, 0, root(), atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longestInWords);
    const XcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_, cookie, nullptr));
    if (!reply)
        return {};
    const auto* bytes = static_cast<const std::byte*>(xcb_get_property_value(reply.get()));
    return { bytes, bytes + xcb_get_property_value_length(reply.get()) };
}

xcb_window_t X11Display::selectionOwner(const std::string& selection) const
{
    const auto cookie = xcb_get_selection_owner(connection_, atom(selection));
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_, cookie, nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

bool X11Display::hasCompositor() const
{
    return selectionOwner("_NET_WM_CM_S" + std::to_string(screenNumber_)) != XCB_WINDOW_NONE;
}

QRect X11Display::rootGeometry() const
{
    return geometryOf(root());
}

QPoint X11Display::pointer() const
{
    const XcbReply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(connection_, xcb_query_pointer(connection_, root()), nullptr));
    return reply ? QPoint(reply->root_x, reply->root_y) : QPoint();
}

bool X11Display::isButtonDown() const
{
    constexpr unsigned buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    const XcbReply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(connection_, xcb_query_pointer(connection_, root()), nullptr));
    return reply && (reply->mask & buttons) != 0;
}

xcb_window_t X11Display::frameOf(xcb_window_t window) const
{
    while (true) {
        const XcbReply<xcb_query_tree_reply_t> reply(
            xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr));
        if (!reply || reply->parent == XCB_WINDOW_NONE || reply->parent == root())
            return window;
        window = reply->parent;
    }
}

bool X11Display::isViewable(xcb_window_t window) const
{
    const auto cookie = xcb_get_window_attributes(connection_, window);
    const XcbReply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(connection_, cookie, nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

QRect X11Display::geometryOf(xcb_window_t window) const
{
    const XcbReply<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
    if (!reply)
        return {};
    const int border = 2 * reply->border_width;
    return { reply->x, reply->y, reply->width + border, reply->height + border };
}

QImage::Format X11Display::pictureFormat() const
{
    const auto* setup = xcb_get_setup(connection_);
    if (setup->image_byte_order != XCB_IMAGE_ORDER_LSB_FIRST)
        return QImage::Format_Invalid;
    const int depth = screen_->root_depth;
    for (const auto& each : pictureFormats)
        if (each.depth == depth && each.redMask == redMask(*screen_)
            && each.bitsPerPixel == bitsPerPixel(setup, depth))
            return each.format;
    return QImage::Format_Invalid;
}

QImage X11Display::read(xcb_drawable_t drawable, const QRect& area) const
{
    const auto format = pictureFormat();
    if (format == QImage::Format_Invalid || area.isEmpty())
        return {};
    const auto cookie = xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable,
        static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()),
        static_cast<std::uint16_t>(area.width()), static_cast<std::uint16_t>(area.height()),
        /*plane_mask=*/~0U);
    auto* reply = xcb_get_image_reply(connection_, cookie, nullptr);
    if (reply == nullptr)
        return {};
    // The picture keeps the reply instead of a copy: a large desktop has tens of megabytes.
    const int stride = xcb_get_image_data_length(reply) / area.height();
    return { xcb_get_image_data(reply), area.width(), area.height(), stride, format,
        [](void* data) { std::free(data); }, reply };
}

void X11Display::write(
    xcb_drawable_t drawable, xcb_gcontext_t context, const QImage& picture, QPoint topLeft) const
{
    constexpr qsizetype requestHeader = 64;
    const qsizetype stride = picture.bytesPerLine();
    const qsizetype longest
        = qsizetype(xcb_get_maximum_request_length(connection_)) * 4 - requestHeader;
    const int rowsAtOnce = static_cast<int>(std::max<qsizetype>(1, longest / stride));
    for (int row = 0; row < picture.height(); row += rowsAtOnce) {
        const int rows = std::min(rowsAtOnce, picture.height() - row);
        xcb_put_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, context,
            static_cast<std::uint16_t>(picture.width()), static_cast<std::uint16_t>(rows),
            static_cast<std::int16_t>(topLeft.x()), static_cast<std::int16_t>(topLeft.y() + row),
            /*left_pad=*/0, screen_->root_depth, static_cast<std::uint32_t>(stride * rows),
            picture.constScanLine(row));
    }
}

} // namespace platform
