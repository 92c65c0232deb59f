// Will-change observers: who wants to hear that an object is about to change.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace platform {

/// Ends its observation when the last copy goes; outliving the observed object is fine.
using Subscription = std::shared_ptr<void>;

/// A list of callbacks without payload, called in the order in which they were added.
///
/// An observer may add or end observations, its own included, while it is called: one that was
/// ended is not called any more, one that was added is called from the next announcement on.
class Observers {
public:
    [[nodiscard]] Subscription observe(std::function<void()> observer)
    {
        const auto key = list_->nextKey++;
        list_->entries.emplace(key, std::make_shared<std::function<void()>>(std::move(observer)));
        return { nullptr, [weak = std::weak_ptr<List>(list_), key](void*) {
                    if (const auto list = weak.lock())
                        list->entries.erase(key);
                } };
    }

    void announce() const
    {
        const auto list = list_;
        const auto end = list->nextKey;
        for (auto entry = list->entries.begin();
             entry != list->entries.end() && entry->first < end;) {
            const auto key = entry->first;
            const auto observer = entry->second;
            (*observer)();
            entry = list->entries.upper_bound(key);
        }
    }

private:
    struct List {
        std::map<unsigned long, std::shared_ptr<std::function<void()>>> entries;
        unsigned long nextKey = 0;
    };

    std::shared_ptr<List> list_ = std::make_shared<List>();
};

} // namespace platform
