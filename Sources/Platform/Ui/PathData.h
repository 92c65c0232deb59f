// Drawings written as path data, the compact text form of vector paths.
#pragma once

#include <QPainterPath>

#include <string_view>

namespace platform {

/// The path of absolute path data, which the program itself holds: M, L, H, V, C and Z, each with
/// one group of coordinates.
[[nodiscard]] QPainterPath pathOf(std::string_view data);

} // namespace platform
