#include "Animation.h"

#include <utility>

namespace platform {

namespace {

std::optional<Spring> current;

} // namespace

void withAnimation(const Spring& spring, const std::function<void()>& body)
{
    const auto outer = std::exchange(current, spring);
    body();
    current = outer;
}

std::optional<Spring> currentAnimation()
{
    return current;
}

} // namespace platform
