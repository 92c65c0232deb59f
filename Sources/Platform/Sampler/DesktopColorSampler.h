// Chooses how a colour is picked from the screen of this session.
#pragma once

#include "ColorSampler.h"
#include "SamplerHooks.h"

#include <string>

namespace platform {

/// The ways of picking a colour, one back-end each.
enum class SamplerKind { none, portal, loupe };

/// What the choice depends on.
struct SamplerSession {
    std::string waylandDisplay; // $WAYLAND_DISPLAY
    std::string sessionType; // $XDG_SESSION_TYPE
    bool onX11 = false; // the application's windows are an X server's
    bool hasBus = false;

    /// The session of the running application.
    [[nodiscard]] static SamplerSession current();
};

/// A Wayland session allows the portal only, even to an application that runs on X11 inside it:
/// there the loupe would see nothing but other X11 windows.
[[nodiscard]] SamplerKind samplerKind(const SamplerSession& session);

/// Makes the sampler that fits the session at the time of each pick. A loupe that cannot have the
/// screen goes on to the portal.
[[nodiscard]] ColorSamplerFactory makeColorSamplerFactory(SamplerHooks hooks);

} // namespace platform
