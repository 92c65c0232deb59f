#include "PlasmaPlacement.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QEvent>
#include <QGuiApplication>
#include <qpa/qplatformnativeinterface.h>
#include <QScreen>
#include <QWindow>
#include <wayland-client.h>
#include <wayland-plasma-shell-client-protocol.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

namespace platform {

namespace {

/// With these versions came the wishes to stay out of the lists of windows, and the role of what a
/// tray item opens.
constexpr std::uint32_t neededVersion = ORG_KDE_PLASMA_SURFACE_SET_SKIP_SWITCHER_SINCE_VERSION;
constexpr std::uint32_t popupVersion = ORG_KDE_PLASMA_SURFACE_ROLE_APPLETPOPUP_SINCE_VERSION;
/// A desktop that is busy must not hold the panel up.
constexpr int answerMilliseconds = 250;

void bindIfShell(
    void* data, wl_registry* registry, std::uint32_t name, const char* type, std::uint32_t version)
{
    const auto& interface = org_kde_plasma_shell_interface;
    if (version >= neededVersion && std::strcmp(type, interface.name) == 0)
        *static_cast<void**>(data)
            = wl_registry_bind(registry, name, &interface, std::min(version, popupVersion));
}

void ignoreRemoval(void* /*data*/, wl_registry* /*registry*/, std::uint32_t /*name*/) { }

/// Asks on a queue of its own: the toolkit's events stay where they are.
org_kde_plasma_shell* bindShell()
{
    if (!QGuiApplication::platformName().startsWith(QStringLiteral("wayland")))
        return nullptr;
    auto* display = static_cast<wl_display*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForIntegration("wl_display"));
    auto* queue = wl_display_create_queue(display);
    auto* asking = static_cast<wl_display*>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(asking), queue);
    auto* registry = wl_display_get_registry(asking);
    void* shell = nullptr;
    constexpr wl_registry_listener listener { bindIfShell, ignoreRemoval };
    wl_registry_add_listener(registry, &listener, &shell);
    wl_display_roundtrip_queue(display, queue);
    wl_registry_destroy(registry);
    wl_proxy_wrapper_destroy(asking);
    if (shell != nullptr)
        wl_proxy_set_queue(static_cast<wl_proxy*>(shell), nullptr);
    wl_event_queue_destroy(queue);
    return static_cast<org_kde_plasma_shell*>(shell);
}

/// Null anywhere else. A process may bind it once.
org_kde_plasma_shell* plasmaShell()
{
    static auto* const shell = bindShell();
    return shell;
}

} // namespace

bool PlasmaPlacement::isPossible()
{
    return plasmaShell() != nullptr;
}

QRect PlasmaPlacement::availableGeometry(const QScreen& screen)
{
    auto question = QDBusMessage::createMethodCall(QStringLiteral("org.kde.plasmashell"),
        QStringLiteral("/StrutManager"), QStringLiteral("org.kde.PlasmaShell.StrutManager"),
        QStringLiteral("availableScreenRect"));
    question << screen.name();
    question.setAutoStartService(false);
    const QDBusReply<QRect> answer
        = QDBusConnection::sessionBus().call(question, QDBus::Block, answerMilliseconds);
    const auto free = answer.value() & screen.geometry();
    return free.isEmpty() ? screen.availableGeometry() : free;
}

PlasmaPlacement::PlasmaPlacement(QWindow& window, QPoint position, const QRect& input)
    : window_(window)
    , position_(position)
    , input_(input)
{
    window.installEventFilter(this);
    // A window that is hidden loses its surface, and what stands on that has to go first.
    connect(&window, &QWindow::visibleChanged, this, [this](bool isVisible) {
        if (!isVisible)
            release();
    });
}

bool PlasmaPlacement::eventFilter(QObject* watched, QEvent* event)
{
    // Between the making of a surface and its first picture.
    if (event->type() == QEvent::Expose && surface_ == nullptr && window_.isExposed())
        place();
    return QObject::eventFilter(watched, event);
}

void PlasmaPlacement::place()
{
    auto* surface = static_cast<wl_surface*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", &window_));
    if (surface == nullptr)
        return;
    surface_ = org_kde_plasma_shell_get_surface(plasmaShell(), surface);
    if (org_kde_plasma_surface_get_version(surface_) >= popupVersion)
        org_kde_plasma_surface_set_role(surface_, ORG_KDE_PLASMA_SURFACE_ROLE_APPLETPOPUP);
    org_kde_plasma_surface_set_position(surface_, position_.x(), position_.y());
    org_kde_plasma_surface_set_skip_taskbar(surface_, 1);
    org_kde_plasma_surface_set_skip_switcher(surface_, 1);
    window_.setMask(input_);
}

void PlasmaPlacement::release()
{
    if (auto* surface = std::exchange(surface_, nullptr))
        org_kde_plasma_surface_destroy(surface);
}

} // namespace platform
