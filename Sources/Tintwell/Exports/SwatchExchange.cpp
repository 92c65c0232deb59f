#include "SwatchExchange.h"

#include "Text.h"

#include <bit>
#include <cstdint>
#include <string_view>

namespace tintwell {

namespace {

/// Appends the bytes of `value`, the highest first.
template <typename Integer> void append(std::string& bytes, Integer value)
{
    for (int shift = 8 * (static_cast<int>(sizeof value) - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>(static_cast<unsigned char>(value >> shift));
}

/// The name in UTF-16 with a closing zero, after its length.
std::string nameBytes(std::string_view name)
{
    constexpr std::uint32_t firstBeyond = 0x10000;
    std::string units;
    while (!name.empty()) {
        const auto codePoint = static_cast<std::uint32_t>(platform::takeCharacter(name).codePoint);
        if (codePoint < firstBeyond) {
            append(units, static_cast<std::uint16_t>(codePoint));
        } else {
            append(units, static_cast<std::uint16_t>(0xD7C0U + (codePoint >> 10U)));
            append(units, static_cast<std::uint16_t>(0xDC00U | (codePoint & 0x3FFU)));
        }
    }
    append(units, std::uint16_t { 0 });
    std::string bytes;
    append(bytes, static_cast<std::uint16_t>(units.size() / 2));
    return bytes + units;
}

std::string colorBlock(const NamedColor& entry)
{
    constexpr std::uint16_t ordinaryColor = 2;
    std::string body = nameBytes(entry.name) + "RGB ";
    const auto steps = entry.color.bytes();
    for (std::size_t at = 0; at < 3; ++at)
        append(body, std::bit_cast<std::uint32_t>(static_cast<float>(steps[at]) / 255.0F));
    append(body, ordinaryColor);
    return body;
}

} // namespace

std::string swatchExchangeBytes(const std::vector<NamedColor>& colors)
{
    constexpr std::uint16_t colorType = 1;
    std::string bytes = "ASEF";
    append(bytes, std::uint16_t { 1 });
    append(bytes, std::uint16_t { 0 });
    append(bytes, static_cast<std::uint32_t>(colors.size()));
    for (const auto& color : colors) {
        const auto block = colorBlock(color);
        append(bytes, colorType);
        append(bytes, static_cast<std::uint32_t>(block.size()));
        bytes += block;
    }
    return bytes;
}

} // namespace tintwell
