// From what a call asks for to what it leaves behind.
#pragma once

#include "Report.h"
#include "Request.h"
#include "Terminal.h"

namespace tintwell {

/// Does what `request` asks. Only a stream reads and writes the standard streams itself; all other
/// output is in the report.
[[nodiscard]] Report perform(const Request& request, const Terminal& terminal);

} // namespace tintwell
