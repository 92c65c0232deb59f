// What another program holds in a selection of the X server: the clipboard, or a drag.
#pragma once

#include "Pasteboard.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace platform {

/// No colour is written in more bytes.
inline constexpr std::size_t longestColorText = 4096;

/// The colour and the text in `selection`, as far as they are there, read past the toolkit, which
/// waits for a program that has stopped as long as it takes, and reads all that there is. An error
/// when the program has not answered within a second, or the content is far too long. Nothing when
/// there is no X server. Not to be asked for a selection of this process.
///
/// `window` is the one that a drag was dropped on.
[[nodiscard]] std::optional<Result<PastedContent>> readX11Selection(
    const char* selection, std::uint32_t window = 0);

} // namespace platform
