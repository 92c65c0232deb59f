// What somebody may have meant by a word that is none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tintwell {

/// The word that `typed` misses by the fewest letters, two at most; empty when none is that near.
[[nodiscard]] std::string closestWord(
    std::string_view typed, const std::vector<std::string>& words);

} // namespace tintwell
