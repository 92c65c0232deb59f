// The colour names of CSS.
#pragma once

#include <string_view>

namespace tintwell {

/// RRGGBB of a CSS Color 4 name in lower-case letters, RRGGBBAA of "transparent"; empty for any
/// other text.
[[nodiscard]] std::string_view cssColorNamed(std::string_view name);

} // namespace tintwell
