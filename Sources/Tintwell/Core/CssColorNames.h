// The colour names of CSS.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tintwell {

/// 0xRRGGBB of a CSS Color 4 name in lower-case letters; nothing for any other text. "transparent"
/// is not among them.
[[nodiscard]] std::optional<std::uint32_t> cssColorNamed(std::string_view name);

} // namespace tintwell
