#include "RGBAColor.h"

#include "Hashing.h"
#include "NumberText.h"
#include "SRGBTransfer.h"
#include "Text.h"

#include <utf8proc.h>

#include <algorithm>
#include <charconv>
#include <initializer_list>

namespace tintwell {

namespace {

bool isAlphanumeric(std::int32_t codePoint)
{
    const auto category = utf8proc_category(codePoint);
    return category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_NO;
}

/// `text` from its first to its last letter, mark or number. Bytes that are not UTF-8 count as
/// symbols.
std::string_view trimmedToAlphanumeric(std::string_view text)
{
    std::size_t first = text.size();
    std::size_t end = 0;
    for (auto rest = text; !rest.empty();) {
        const auto at = text.size() - rest.size();
        const auto character = platform::takeCharacter(rest);
        if (character.codePoint >= 0 && isAlphanumeric(character.codePoint)) {
            first = std::min(first, at);
            end = at + character.bytes.size();
        }
    }
    return first < end ? text.substr(first, end - first) : std::string_view {};
}

/// The byte of `number` that starts at `bit`, as a component.
double componentAt(std::uint64_t number, unsigned bit)
{
    return static_cast<double>((number >> bit) & 0xFFU) / 255;
}

std::string hexText(std::initializer_list<std::size_t> bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "#";
    for (const auto byte : bytes) {
        text += digits[byte / 16];
        text += digits[byte % 16];
    }
    return text;
}

} // namespace

std::optional<RGBAColor> RGBAColor::fromHex(std::string_view text)
{
    // Every character that may pass is one byte, so counting bytes counts characters.
    const auto digits = trimmedToAlphanumeric(text);
    if (digits.size() != 6 && digits.size() != 8)
        return std::nullopt;

    std::uint64_t number = 0;
    const auto* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number, 16);
    if (read.ec != std::errc {} || read.ptr != end)
        return std::nullopt;

    const bool hasAlpha = digits.size() == 8;
    const auto rgb = hasAlpha ? number >> 8U : number;
    return RGBAColor(componentAt(rgb, 16), componentAt(rgb, 8), componentAt(rgb, 0),
        hasAlpha ? componentAt(number, 0) : 1);
}

std::array<std::uint8_t, 4> RGBAColor::bytes() const
{
    const RGBAColor clamped(red, green, blue, alpha);
    const auto byte = [](double component) {
        return static_cast<std::uint8_t>(roundedHalfAway(component * 255));
    };
    return { byte(clamped.red), byte(clamped.green), byte(clamped.blue), byte(clamped.alpha) };
}

std::string RGBAColor::hex() const
{
    const auto [redByte, greenByte, blueByte, alphaByte] = bytes();
    return hexText({ redByte, greenByte, blueByte });
}

std::string RGBAColor::hexWithAlpha() const
{
    if (!(alpha < 1))
        return hex();
    const auto [redByte, greenByte, blueByte, alphaByte] = bytes();
    return hexText({ redByte, greenByte, blueByte, alphaByte });
}

double RGBAColor::relativeLuminance() const
{
    return (decodeSRGB(green) * 0.7152 + decodeSRGB(red) * 0.2126) + decodeSRGB(blue) * 0.0722;
}

} // namespace tintwell

std::size_t std::hash<tintwell::RGBAColor>::operator()(
    const tintwell::RGBAColor& color) const noexcept
{
    return tintwell::Hasher()
        .feed(color.red)
        .feed(color.green)
        .feed(color.blue)
        .feed(color.alpha)
        .value();
}
