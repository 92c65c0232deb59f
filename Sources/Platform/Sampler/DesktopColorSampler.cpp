#include "DesktopColorSampler.h"

#include "DesktopSession.h"
#include "PortalColorSampler.h"
#include "X11ColorSampler.h"
#include "X11Display.h"

#include <utility>

namespace platform {

ColorSamplerFactory makeColorSamplerFactory(ColorDescriber describe)
{
    return [describe = std::move(describe)]() -> std::unique_ptr<ColorSampler> {
        const auto display = isWaylandSession() ? std::nullopt : X11Display::current();
        if (!display)
            return std::make_unique<PortalColorSampler>();
        return std::make_unique<X11ColorSampler>(*display, describe);
    };
}

} // namespace platform
