#include "History.h"

#include <algorithm>
#include <utility>

namespace tintwell {

RemovedPalette::RemovedPalette(
    SavedPalette palette, std::optional<platform::Uuid> next, std::size_t older)
    : palette_(std::move(palette))
    , next_(next)
    , older_(older)
{
}

std::vector<RemovedPalette> RemovedPalette::take(
    std::vector<SavedPalette>& library, const platform::Uuid& id)
{
    std::vector<RemovedPalette> removed;
    for (auto palette = library.end(); palette != library.begin();) {
        if ((--palette)->id != id)
            continue;
        auto taken = std::move(*palette);
        palette = library.erase(palette);
        const auto next = palette == library.end() ? std::nullopt : std::optional(palette->id);
        removed.push_back(RemovedPalette(
            std::move(taken), next, static_cast<std::size_t>(library.end() - palette)));
    }
    return removed;
}

bool RemovedPalette::putBack(
    std::vector<SavedPalette>& library, const std::vector<RemovedPalette>& removed)
{
    const auto placeOf = [&](const std::optional<platform::Uuid>& id) {
        return std::find_if(
            library.begin(), library.end(), [&](const auto& each) { return each.id == id; });
    };
    if (!removed.empty() && placeOf(removed.front().palette_.id) != library.end())
        return false;
    std::for_each(removed.rbegin(), removed.rend(), [&](const RemovedPalette& each) {
        auto place = placeOf(each.next_);
        if (place == library.end())
            place -= static_cast<std::ptrdiff_t>(std::min(each.older_, library.size()));
        library.insert(place, each.palette_);
    });
    return true;
}

void History::remember(Step backwards)
{
    past.push_back(std::move(backwards));
    if (past.size() > mostSteps)
        past.erase(past.begin());
    future.clear();
}

} // namespace tintwell
