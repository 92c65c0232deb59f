// Any text as a hex colour, and any four numbers as the components of a source colour.
#include "PaletteGenerator.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

using namespace tintwell;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void checkHex(std::string_view text)
{
    const auto color = RGBAColor::fromHex(text);
    if (!color)
        return;
    auto again = RGBAColor::fromHex(color->hex());
    require(again.has_value() && again->alpha == 1);
    again->alpha = color->alpha;
    require(again == color);
}

void checkComponents(const RGBAColor& source)
{
    const auto palette = PaletteGenerator().generate(source);
    require(palette.exportColors().front().name == "Source \u2014 " + palette.sourceName);
    for (const auto* theme : { &palette.lightTheme, &palette.darkTheme }) {
        require(theme->colors.size() == 10);
        for (const auto& role : theme->colors)
            require(role.color.hex().size() == 7 && role.color.alpha == 1);
    }
    (void)ensureContrast(source, source, 7);
    (void)ensureReadableFill(source);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    checkHex({ reinterpret_cast<const char*>(data), size });
    std::array<double, 4> components {};
    if (size >= sizeof components) {
        std::memcpy(components.data(), data, sizeof components);
        checkComponents(
            RGBAColor::stored(components[0], components[1], components[2], components[3]));
    }
    return 0;
}
