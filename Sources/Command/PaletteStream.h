// Colours in, palettes out: one a line, for as long as lines come.
#pragma once

#include "Report.h"

namespace tintwell {

/// Reads one colour a line from `input` and writes its palette as one line of compact JSON to
/// `output`, in the same order, with `jobs` threads (at least one) and in constant memory.
///
/// Blank lines and comments are passed over. What is finished is written while waiting for more
/// input. A line that is no colour is reported on `diagnostics` by its number, the others are still
/// done, and the end is a failure without further message.
[[nodiscard]] Report streamPalettes(int input, int output, int diagnostics, unsigned jobs);

} // namespace tintwell
