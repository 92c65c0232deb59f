// A palette as the binary swatch file that layout programs exchange (".ase").
#pragma once

#include "GeneratedPalette.h"

#include <string>
#include <vector>

namespace tintwell {

/// `colors` without groups, as one widespread reader takes the end of a group for a colour. There
/// is no alpha.
[[nodiscard]] std::string swatchExchangeBytes(const std::vector<NamedColor>& colors);

} // namespace tintwell
