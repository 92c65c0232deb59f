#include "Spelling.h"

#include <algorithm>
#include <numeric>

namespace tintwell {

namespace {

/// Letters to insert, leave out or change (the Levenshtein distance).
std::size_t distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (const char letter : a) {
        std::size_t diagonal = row[0]++;
        std::size_t column = 0;
        for (const char other : b) {
            const auto changed = diagonal + (letter == other ? 0 : 1);
            const auto before = row[column++];
            diagonal = row[column];
            row[column] = std::min({ changed, diagonal + 1, before + 1 });
        }
    }
    return row.back();
}

} // namespace

std::string closestWord(std::string_view typed, const std::vector<std::string>& words)
{
    constexpr std::size_t longest = 20;
    std::size_t nearest = std::min<std::size_t>(2, typed.size() / 2);
    std::string found;
    for (const auto& word : words) {
        const auto steps = typed.size() > longest ? longest : distance(typed, word);
        if (steps > nearest || (steps == nearest && !found.empty()))
            continue;
        nearest = steps;
        found = word;
    }
    return found;
}

} // namespace tintwell
