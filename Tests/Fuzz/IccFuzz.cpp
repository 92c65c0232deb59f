// Any bytes as the color profile of a screen: they are refused, or give finite colors.
#include "IccColorSpace.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto space = platform::iccColorSpace(std::as_bytes(std::span(data, size)));
    for (const double value : { 0.0, 0.3, 1.0 })
        if (const auto color = space ? space->toSRGB({ value, 1 - value, 0.5 }) : std::nullopt)
            for (const double component : *color)
                if (!std::isfinite(component))
                    std::abort();
    return 0;
}
