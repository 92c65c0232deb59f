// Drawings written as path data, the compact text form of vector paths.
#pragma once

#include <QPainterPath>

#include <optional>
#include <string_view>

namespace platform {

/// Reads absolute path data: M, L, H, V, C, A and Z with any number of coordinate groups each,
/// separated by spaces or commas (the radii and flags of an arc as well). Anything else, also a
/// path that does not begin with M, gives nothing.
[[nodiscard]] std::optional<QPainterPath> parsePathData(std::string_view data);

} // namespace platform
