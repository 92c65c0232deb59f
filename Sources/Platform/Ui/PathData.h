// Drawings written as path data, the compact text form of vector paths.
#pragma once

#include <QPainterPath>

#include <string_view>

namespace platform {

/// The path of absolute path data, which the program itself holds: M, L, H, V, C and Z, each with
/// any number of coordinate groups separated by spaces; after the first group M goes on as L.
[[nodiscard]] QPainterPath pathOf(std::string_view data);

} // namespace platform
