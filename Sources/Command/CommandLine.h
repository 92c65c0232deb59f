// From the words of the command line to what they ask for.
#pragma once

#include "Report.h"
#include "Request.h"

#include <string>
#include <variant>
#include <vector>

namespace tintwell {

/// Understands `arguments` (without the program's name), or reports the help, the version or the
/// misuse. Colour texts are not read yet.
[[nodiscard]] std::variant<Request, Report> parseCommandLine(std::vector<std::string> arguments);

} // namespace tintwell
