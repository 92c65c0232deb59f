// The X server behind the running application, asked in native pixels.
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <xcb/xcb.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// A look at the application's own connection. Coordinates are device pixels of the root window,
/// whatever scale the toolkit draws at.
class X11Display {
public:
    /// Nothing when the application does not run on X11.
    [[nodiscard]] static std::optional<X11Display> current();

    [[nodiscard]] xcb_connection_t* connection() const { return connection_; }
    [[nodiscard]] const xcb_screen_t& screen() const { return *screen_; }
    [[nodiscard]] int screenNumber() const { return screenNumber_; }
    [[nodiscard]] xcb_window_t root() const { return screen_->root; }

    [[nodiscard]] xcb_atom_t atom(const std::string& name) const;
    /// The bytes of a property of the root window; empty when it is not there.
    [[nodiscard]] std::vector<std::byte> rootProperty(const std::string& name) const;
    /// The window that owns a selection; none when nobody does.
    [[nodiscard]] xcb_window_t selectionOwner(const std::string& selection) const;
    [[nodiscard]] bool hasCompositor() const;

    [[nodiscard]] QRect rootGeometry() const;
    /// The pixel under the pointer, exactly; the toolkit only knows it in whole logical pixels.
    [[nodiscard]] QPoint pointer() const;
    /// Whether a pointer button is down, whichever program it was pressed in.
    [[nodiscard]] bool isButtonDown() const;

    /// The child of the root window in which `window` lies: the window manager's frame, or itself.
    [[nodiscard]] xcb_window_t frameOf(xcb_window_t window) const;
    /// Whether the window exists and is on the screen.
    [[nodiscard]] bool isViewable(xcb_window_t window) const;
    /// Where a child of the root window lies; empty when it is gone.
    [[nodiscard]] QRect geometryOf(xcb_window_t window) const;

    /// The format of pictures of the root window; invalid when it is one that cannot be shown.
    [[nodiscard]] QImage::Format pictureFormat() const;
    /// Reads `area` of a window or pixmap of the root window's depth; null when it cannot.
    [[nodiscard]] QImage read(xcb_drawable_t drawable, const QRect& area) const;
    /// Writes a picture of `pictureFormat()` with its corner at `topLeft`.
    void write(xcb_drawable_t drawable, xcb_gcontext_t context, const QImage& picture,
        QPoint topLeft) const;

private:
    X11Display(xcb_connection_t* connection, const xcb_screen_t* screen, int screenNumber)
        : connection_(connection)
        , screen_(screen)
        , screenNumber_(screenNumber)
    {
    }

    xcb_connection_t* connection_;
    const xcb_screen_t* screen_;
    int screenNumber_;
};

} // namespace platform
