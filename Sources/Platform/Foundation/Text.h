// Small questions about texts: their encoding, their letters, and the plain words for a failure.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Where `text` first stops being UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF),
/// as a byte offset; nothing when all of it is.
[[nodiscard]] std::optional<std::size_t> findInvalidUtf8(std::string_view text);

/// `text` without the characters at both ends that are neither letters, marks nor numbers (Unicode
/// general categories L, M, N); bytes that are not UTF-8 count as such characters.
[[nodiscard]] std::string_view trimToAlphanumerics(std::string_view text);

/// An `errno` value in plain words that can end a sentence: "the disk is full".
[[nodiscard]] std::string reasonText(int errorNumber);

} // namespace platform
