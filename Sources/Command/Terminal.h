// What the terminal behind standard output can show, and text that is safe to show on it.
#pragma once

#include "RGBAColor.h"

#include <optional>
#include <string>
#include <string_view>

namespace tintwell {

/// Plain text, the 256 colours that terminals number, or all colours in 24 bits.
enum class ColorDepth { none, indexed, full };

/// How output is laid out.
struct Terminal {
    ColorDepth depth = ColorDepth::none;
    /// Width in character cells.
    int columns = 80;
    /// Whether a person reads it; else lines may be as long as they are.
    bool isTerminal = false;

    [[nodiscard]] bool hasColors() const { return depth != ColorDepth::none; }
};

/// Whether colours go by the terminal, to any output, or to none.
enum class ColorChoice { automatic, always, never };

/// The answers of an environment that decide on colours; unset variables are empty.
struct TerminalEnvironment {
    bool isTerminal = false;
    std::string_view term;
    std::string_view colorTerm;
    std::string_view noColor;
    std::string_view colorForce;
};

/// As deep as COLORTERM or TERM announce, for terminals only. NO_COLOR turns colours off,
/// CLICOLOR_FORCE on for any output, `choice` overrides both; forced colours that nothing announces
/// are the 256.
[[nodiscard]] ColorDepth colorDepth(const TerminalEnvironment& environment, ColorChoice choice);

/// The terminal behind `descriptor` in this process's environment; 80 columns when there is none.
[[nodiscard]] Terminal terminalBehind(int descriptor, ColorChoice choice);

/// `text` as valid UTF-8 in which nothing steers a terminal: control characters, line separators,
/// direction marks and invalid bytes become U+FFFD.
[[nodiscard]] std::string printable(std::string_view text);

/// `printable` text in double quotes for a message, shortened after 40 characters.
[[nodiscard]] std::string inQuotes(std::string_view text);

/// JSON text with the control characters that JSON allows raw (U+007F…U+009F) written as escapes.
[[nodiscard]] std::string withEscapedControls(std::string_view json);

/// Character cells that valid UTF-8 takes: 0 for combining marks, 2 for wide characters.
[[nodiscard]] int displayWidth(std::string_view text);

/// `text` filled with spaces up to `columns` cells; longer text is cut to fit, ending in "…".
[[nodiscard]] std::string fitted(std::string_view text, int columns);

/// How a run of text is painted; what is absent stays the terminal's own.
struct Paint {
    std::optional<RGBAColor> ink {};
    std::optional<RGBAColor> fill {};
    bool bold = false;
    bool faint = false;
};

/// `text` between the escape sequences that paint it and the one that ends all painting.
[[nodiscard]] std::string painted(std::string_view text, const Paint& paint);

/// `painted` text with each colour replaced by the nearest of the 256.
[[nodiscard]] std::string withIndexedColors(std::string_view text);

} // namespace tintwell
