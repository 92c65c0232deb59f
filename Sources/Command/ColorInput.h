// Lines of colours from a descriptor, for as long as they come.
#pragma once

#include "Result.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace tintwell {

/// Longer lines are refused unread, so that no input can fill the memory.
inline constexpr std::size_t longestInputLine = 65535;

/// Nothing, only space, or a comment: "#" alone or before a space.
[[nodiscard]] bool isBlankOrComment(std::string_view line);

/// Cuts what comes from `descriptor` into lines that end in LF or CRLF; the last may end without.
class LineReader {
public:
    struct Line {
        long long number = 0;
        std::string text {};
        bool isTooLong = false; ///< `text` is empty then.
    };

    /// Reading ends early when `wake` becomes readable.
    explicit LineReader(int descriptor, int wake = -1);

    /// Waits for a line, then takes as many as are there, `most` at most. Empty at the end and on
    /// an error.
    [[nodiscard]] std::vector<Line> take(std::size_t most);

    /// The `errno` value that ended the reading; 0 at the end of the input.
    [[nodiscard]] int error() const { return error_; }

private:
    ssize_t receive();
    bool fill();
    bool cutLine(Line& line);

    int descriptor_;
    int wake_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    long long lineNumber_ = 0;
    bool skipping_ = false;
    bool ended_ = false;
    int error_ = 0;
};

/// The lines of `descriptor` that are neither blank nor comments. The error says that it cannot be
/// read or holds too much.
[[nodiscard]] platform::Result<std::vector<std::string>> readColorLines(int descriptor);

} // namespace tintwell
