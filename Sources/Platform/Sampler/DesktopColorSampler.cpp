#include "DesktopColorSampler.h"

#include "DesktopSession.h"
#include "PortalColorSampler.h"
#include "X11ColorSampler.h"
#include "X11Display.h"

#include <utility>

namespace platform {

ColorSamplerFactory makeColorSamplerFactory(
    ColorDescriber describe, std::function<void()> impossible)
{
    return [describe = std::move(describe),
               impossible = std::move(impossible)]() -> std::unique_ptr<ColorSampler> {
        const auto display = isWaylandSession() ? std::nullopt : X11Display::current();
        if (!display)
            return std::make_unique<PortalColorSampler>(impossible);
        return std::make_unique<X11ColorSampler>(*display, describe, impossible);
    };
}

} // namespace platform
