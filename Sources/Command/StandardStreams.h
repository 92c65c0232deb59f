// Reading and writing file descriptors to the end, with their failures told apart.
#pragma once

#include <string_view>

namespace tintwell {

/// Writes all of `text`. 0 when it is written, else the `errno` value; EPIPE means that the reader
/// has gone.
[[nodiscard]] int writeAll(int descriptor, std::string_view text);

/// Closes `descriptor`; 0 or the `errno` value of a write that only now turns out to have failed.
[[nodiscard]] int closeChecked(int descriptor);

/// Opens the standard descriptors that the caller left closed, so that no file of ours takes their
/// place; what is written to them fails.
void reserveStandardDescriptors();

} // namespace tintwell
