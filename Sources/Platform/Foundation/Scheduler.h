// Later on the main thread: the one way in which the application waits.
#pragma once

#include <chrono>
#include <functional>

namespace platform {

/// Runs tasks on the main thread after a delay, in the order in which they fall due.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    /// Runs `task` once, `delay` from now on a monotonic clock, never inside this call. A pending
    /// task cannot be cancelled; one that must not outlive its object captures a weak reference.
    virtual void after(std::chrono::milliseconds delay, std::function<void()> task) = 0;
};

} // namespace platform
