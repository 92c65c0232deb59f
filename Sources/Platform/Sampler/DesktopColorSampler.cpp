#include "DesktopColorSampler.h"

#include "NullColorSampler.h"
#include "PortalColorSampler.h"
#include "X11ColorSampler.h"
#include "X11Display.h"

#include <QDBusConnection>
#include <QtGlobal>

#include <utility>

namespace platform {

namespace {

std::unique_ptr<ColorSampler> makePortalOrNothing(const SamplerSession& session)
{
    if (session.hasBus)
        return std::make_unique<PortalColorSampler>();
    return std::make_unique<NullColorSampler>();
}

} // namespace

SamplerSession SamplerSession::current()
{
    return { qEnvironmentVariable("WAYLAND_DISPLAY").toStdString(),
        qEnvironmentVariable("XDG_SESSION_TYPE").toStdString(), X11Display::current().has_value(),
        QDBusConnection::sessionBus().isConnected() };
}

SamplerKind samplerKind(const SamplerSession& session)
{
    const bool wayland = !session.waylandDisplay.empty() || session.sessionType == "wayland";
    if (!wayland && session.onX11)
        return SamplerKind::loupe;
    return session.hasBus ? SamplerKind::portal : SamplerKind::none;
}

ColorSamplerFactory makeColorSamplerFactory(SamplerHooks hooks)
{
    return [hooks = std::move(hooks)]() -> std::unique_ptr<ColorSampler> {
        const auto session = SamplerSession::current();
        switch (samplerKind(session)) {
        case SamplerKind::loupe:
            return std::make_unique<X11ColorSampler>(
                hooks, [session] { return makePortalOrNothing(session); });
        case SamplerKind::portal:
        case SamplerKind::none:
            break;
        }
        return makePortalOrNothing(session);
    };
}

} // namespace platform
