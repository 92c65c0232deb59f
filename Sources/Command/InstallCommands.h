// Colour lists on the command line: install one, show which are there.
#pragma once

#include "MacColorIntegration.h"
#include "Report.h"

#include <string>
#include <vector>

namespace tintwell {

/// Installs `colors` as the colour list "Tintwell".
[[nodiscard]] Report installColors(
    MacColorListInstaller& installer, const std::vector<NamedColor>& colors);

/// One line a list: name, number of colours, whether it can be changed, file.
[[nodiscard]] std::string listsLayout(const std::vector<platform::ColorList>& lists);

} // namespace tintwell
