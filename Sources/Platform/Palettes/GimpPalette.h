// Colour lists as GIMP palette texts (".gpl"), the form that most drawing programs read.
#pragma once

#include "ColorList.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// `list` in the subset of the format that every reader takes: no optional header line, no empty
/// line, ASCII names, at least 50 bytes. Alpha is left out, the colours are sRGB in 256 steps; one
/// without an sRGB form is left out. `comment` is one line of ASCII that is put before the colours.
[[nodiscard]] std::string gimpPaletteText(const ColorList& list, std::string_view comment = {});

/// The colours of a palette text with their names, one "red green blue name" each, however they are
/// spaced; whatever else the text says is passed over.
[[nodiscard]] std::vector<std::string> gimpPaletteEntries(const std::string& text);

/// `text` in ASCII on one line: letters lose their accents, punctuation its typography, control
/// characters become spaces, what has no such form becomes "?".
[[nodiscard]] std::string plainAscii(std::string_view text);

} // namespace platform
