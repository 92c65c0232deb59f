// Animated transactions: marks the writes that the views should show as a movement.
#pragma once

#include <functional>
#include <optional>

namespace platform {

/// A damped spring from 0 to 1. `response` is its undamped period in seconds, `dampingFraction` 1
/// is critical damping.
struct Spring {
    double response = 0;
    double dampingFraction = 1;
    double blendDuration = 0;

    bool operator==(const Spring&) const = default;
};

/// Runs `body`; writes that announce themselves inside it are to be animated with `spring`. Main
/// thread only.
void withAnimation(const Spring& spring, const std::function<void()>& body);

/// The spring of the innermost transaction that is running now, or nothing outside any.
[[nodiscard]] std::optional<Spring> currentAnimation();

} // namespace platform
