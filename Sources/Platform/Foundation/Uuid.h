// A 128-bit identifier and its 36-character text.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The 16 bytes of a UUID in network order.
struct Uuid {
    std::array<std::uint8_t, 16> bytes {};

    auto operator<=>(const Uuid&) const = default;

    /// A random (version 4) UUID from the kernel's randomness.
    [[nodiscard]] static Uuid random();

    /// Reads 8-4-4-4-12 hexadecimal digits of either case, nothing around them; anything else gives
    /// nothing.
    [[nodiscard]] static std::optional<Uuid> fromText(std::string_view text);

    /// 36 characters: upper-case hexadecimal digits in groups of 8, 4, 4, 4 and 12 joined by
    /// hyphens.
    [[nodiscard]] std::string text() const;
};

} // namespace platform
