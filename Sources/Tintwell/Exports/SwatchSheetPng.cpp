#include "SwatchSheet.h"

#include <cairo.h>

#include <cmath>
#include <memory>
#include <numbers>

namespace tintwell {

namespace {

constexpr double pixelsPerPoint = 2;

struct Release {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* pen) const { cairo_destroy(pen); }
};

void setColor(cairo_t* pen, const RGBAColor& color)
{
    // In the steps that the hex texts name.
    const auto [red, green, blue, alpha] = color.bytes();
    cairo_set_source_rgba(pen, red / 255.0, green / 255.0, blue / 255.0, alpha / 255.0);
}

void draw(cairo_t* pen, const SheetBox& box)
{
    constexpr double quarter = std::numbers::pi / 2;
    const double radius = box.radius;
    const double right = box.x + box.width - radius;
    const double bottom = box.y + box.height - radius;
    cairo_new_sub_path(pen);
    cairo_arc(pen, right, box.y + radius, radius, -quarter, 0);
    cairo_arc(pen, right, bottom, radius, 0, quarter);
    cairo_arc(pen, box.x + radius, bottom, radius, quarter, 2 * quarter);
    cairo_arc(pen, box.x + radius, box.y + radius, radius, 2 * quarter, 3 * quarter);
    cairo_close_path(pen);
    setColor(pen, box.fill);
    cairo_fill_preserve(pen);
    setColor(pen, sheetEdge);
    cairo_stroke(pen);
}

void draw(cairo_t* pen, const SheetText& text)
{
    cairo_select_font_face(pen, text.isMonospace ? "monospace" : "sans-serif",
        CAIRO_FONT_SLANT_NORMAL, text.isBold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(pen, text.size);
    setColor(pen, text.ink);
    cairo_move_to(pen, text.x, text.baseline);
    cairo_show_text(pen, text.text.c_str());
}

cairo_status_t appendBytes(void* bytes, const unsigned char* data, unsigned int length)
{
    static_cast<std::string*>(bytes)->append(data, data + length);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

platform::Result<std::string> pngBytes(const SwatchSheet& sheet)
{
    const std::unique_ptr<cairo_surface_t, Release> surface(cairo_image_surface_create(
        CAIRO_FORMAT_RGB24, static_cast<int>(std::lround(sheet.width * pixelsPerPoint)),
        static_cast<int>(std::lround(sheet.height * pixelsPerPoint))));
    const std::unique_ptr<cairo_t, Release> pen(cairo_create(surface.get()));
    cairo_scale(pen.get(), pixelsPerPoint, pixelsPerPoint);
    cairo_set_line_width(pen.get(), 1);
    cairo_set_source_rgb(pen.get(), 1, 1, 1);
    cairo_paint(pen.get());
    for (const auto& mark : sheet.marks)
        std::visit([&pen](const auto& each) { draw(pen.get(), each); }, mark);
    std::string bytes;
    auto status = cairo_status(pen.get());
    if (status == CAIRO_STATUS_SUCCESS)
        status = cairo_surface_write_to_png_stream(surface.get(), appendBytes, &bytes);
    if (status != CAIRO_STATUS_SUCCESS)
        return platform::Error { std::string("The picture could not be drawn: ")
            + cairo_status_to_string(status) };
    return bytes;
}

} // namespace tintwell
