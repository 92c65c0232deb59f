// Any bytes as what another program has copied or drags: its color, as `application/x-color`,
// before the first line's end and its text behind. What is a color is one of the application's.
#include "MacColorIntegration.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace tintwell;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto end = bytes.find('\n');
    const platform::PastedContent content { platform::colorFromChannels(bytes.substr(0, end)),
        std::string(end == bytes.npos ? "" : bytes.substr(end + 1)) };
    const auto color = fromPastedContent(content);
    if (!color) {
        if (content.color)
            std::abort();
        return 0;
    }
    for (const double component : { color->red, color->green, color->blue, color->alpha })
        if (!(component >= 0 && component <= 1))
            std::abort();
    // What we copy of it is what is pasted again.
    if (fromPastedContent({ ColorPasteboard::content(*color).color, color->hex() }) != color)
        std::abort();
    return 0;
}
