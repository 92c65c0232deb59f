// The characters of a text, and the plain words for a failure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

struct Character {
    /// -1 for a byte that is not UTF-8.
    std::int32_t codePoint = -1;
    std::string_view bytes;
};

/// Takes the first character off `text`, which is not empty; a byte that is not UTF-8 counts as
/// one.
[[nodiscard]] Character takeCharacter(std::string_view& text);

/// Where `text` first stops being UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF),
/// as a byte offset; nothing when all of it is.
[[nodiscard]] std::optional<std::size_t> findInvalidUtf8(std::string_view text);

/// An `errno` value in plain words that can end a sentence: "the disk is full".
[[nodiscard]] std::string reasonText(int errorNumber);

} // namespace platform
