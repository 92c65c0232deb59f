// Field-by-field hashing of the value records.
#pragma once

#include <cstddef>
#include <functional>

namespace tintwell {

/// Collects the hashes of fields, in the order in which they are fed.
class Hasher {
public:
    template <typename T> Hasher& feed(const T& field)
    {
        // The golden ratio spreads neighbouring values; the shifts make the order count.
        constexpr std::size_t spread = 0x9e3779b97f4a7c15;
        value_ ^= std::hash<T> {}(field) + spread + (value_ << 6U) + (value_ >> 2U);
        return *this;
    }

    /// The length first, so that neighbouring lists cannot trade elements.
    template <typename List> Hasher& feedList(const List& list)
    {
        feed(list.size());
        for (const auto& element : list)
            feed(element);
        return *this;
    }

    [[nodiscard]] std::size_t value() const { return value_; }

private:
    std::size_t value_ = 0;
};

} // namespace tintwell
