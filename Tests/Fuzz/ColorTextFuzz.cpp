// Any text as a colour; what is one is written and read again in every notation.
#include "ColorText.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace tintwell;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto color = colorFromText(text);
    const auto plain = RGBAColor::fromHex(text);
    if (plain && color != plain)
        std::abort();
    if (!color)
        return 0;
    for (const auto& written : { color->hexWithAlpha(), rgbText(*color), hslText(*color),
             oklchText(*color), customProperty("any", *color) }) {
        const auto again = colorFromText(written);
        if (!again || again->bytes() != color->bytes())
            std::abort();
    }
    return 0;
}
