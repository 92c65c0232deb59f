#include "WaylandFrame.h"

#include <QGuiApplication>
#include <qpa/qplatformnativeinterface.h>
#include <QWindow>
#include <wayland-client.h>

#include <cstring>

namespace platform {

namespace {

// Requests of the protocol's "xdg_toplevel".
constexpr std::uint32_t setMaximumSize = 7;
constexpr std::uint32_t setMinimumSize = 8;

void noteDecorations(void* data, wl_registry* /*registry*/, std::uint32_t /*name*/,
    const char* type, std::uint32_t /*version*/)
{
    if (std::strcmp(type, "zxdg_decoration_manager_v1") == 0)
        *static_cast<bool*>(data) = true;
}

void ignoreRemoval(void* /*data*/, wl_registry* /*registry*/, std::uint32_t /*name*/) { }

/// Asks over a connection of its own: the toolkit's events stay where they are.
bool offersDecorations()
{
    auto* display = wl_display_connect(nullptr);
    if (display == nullptr)
        return true;
    bool isOffered = false;
    auto* registry = wl_display_get_registry(display);
    constexpr wl_registry_listener listener { noteDecorations, ignoreRemoval };
    wl_registry_add_listener(registry, &listener, &isOffered);
    wl_display_roundtrip(display);
    wl_registry_destroy(registry);
    wl_display_disconnect(display);
    return isOffered;
}

} // namespace

bool isFramedByDesktop()
{
    static const bool isFramed
        = !QGuiApplication::platformName().startsWith(QStringLiteral("wayland"))
        || offersDecorations();
    return isFramed;
}

WaylandFrame::WaylandFrame(QWindow& window, const QMargins& shadow)
    : window_(window)
    , shadow_(shadow)
{
    using SetMargins = void (*)(QWindow*, const QMargins&);
    auto* const native = QGuiApplication::platformNativeInterface();
    if (auto* const set = native->nativeResourceFunctionForWindow("setmargins"))
        // Declared as what it is not, for want of a type.
        reinterpret_cast<SetMargins>(reinterpret_cast<void (*)()>(set))(&window, shadow);
    window.installEventFilter(this);
}

bool WaylandFrame::eventFilter(QObject* watched, QEvent* event)
{
    // Each showing makes a new surface; this is between its making and its first picture.
    if (event->type() == QEvent::Expose && window_.isExposed())
        mark();
    return QObject::eventFilter(watched, event);
}

void WaylandFrame::mark()
{
    const auto inside = QRect({}, window_.size()).marginsRemoved(shadow_);
    window_.setMask(inside);
    auto* const native = QGuiApplication::platformNativeInterface();
    auto* const toplevel
        = static_cast<wl_proxy*>(native->nativeResourceForWindow("xdg_toplevel", &window_));
    if (toplevel == nullptr)
        return;
    // The toolkit counts the shadow in.
    for (const auto request : { setMaximumSize, setMinimumSize })
        wl_proxy_marshal_flags(toplevel, request, nullptr, wl_proxy_get_version(toplevel), 0,
            inside.width(), inside.height());
}

} // namespace platform
