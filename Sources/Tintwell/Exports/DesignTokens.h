// A palette as design tokens.
#pragma once

#include "GeneratedPalette.h"

#include <string>

namespace tintwell {

/// All colours as a file of the Design Tokens format, version 2025.10: "source", a group a section
/// and the groups "light" and "dark", named after the ids. A role with the colour of a tone
/// or of the source is an alias of that.
[[nodiscard]] std::string designTokensText(const GeneratedPalette& palette);

} // namespace tintwell
