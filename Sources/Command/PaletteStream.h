// Colours in, palettes out: one a line, for as long as lines come.
#pragma once

#include "Report.h"

namespace tintwell {

/// Reads one colour a line from `input` and writes its palette as one line of compact JSON to
/// `output`, in constant memory.
///
/// Lines end in LF or CRLF; the last one may end without. What is finished is written before
/// waiting for more input. A line that is no colour is reported on `diagnostics` by its number, the
/// others are still done, and the end is a failure without further message.
[[nodiscard]] Report streamPalettes(int input, int output, int diagnostics);

/// Longer lines are refused unread, so that no input can fill the memory.
inline constexpr int longestStreamLine = 65535;

} // namespace tintwell
