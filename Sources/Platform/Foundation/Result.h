// A value or one sentence for the user: how operations that can fail report it.
#pragma once

#include <cassert>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace platform {

/// A failure, as one sentence that can stand in the status line as it is.
struct Error {
    std::string description;

    bool operator==(const Error&) const = default;
};

/// Holds either a `T` or the `Error` that kept it from being made.
template <typename T> class [[nodiscard]] Result {
public:
    Result(T value)
        : state_(std::in_place_index<0>, std::move(value))
    {
    }
    Result(Error error)
        : state_(std::in_place_index<1>, std::move(error))
    {
    }

    [[nodiscard]] bool hasValue() const { return state_.index() == 0; }
    explicit operator bool() const { return hasValue(); }

    [[nodiscard]] T& value() & { return assert(hasValue()), *std::get_if<0>(&state_); }
    [[nodiscard]] const T& value() const& { return assert(hasValue()), *std::get_if<0>(&state_); }
    [[nodiscard]] T&& value() && { return assert(hasValue()), std::move(*std::get_if<0>(&state_)); }
    [[nodiscard]] const Error& error() const
    {
        return assert(!hasValue()), *std::get_if<1>(&state_);
    }

private:
    std::variant<T, Error> state_;
};

/// The outcome of an operation that returns nothing but can fail.
template <> class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(Error error)
        : error_(std::move(error))
    {
    }

    [[nodiscard]] bool hasValue() const { return !error_.has_value(); }
    explicit operator bool() const { return hasValue(); }
    [[nodiscard]] const Error& error() const { return assert(error_.has_value()), *error_; }

private:
    std::optional<Error> error_;
};

} // namespace platform
