// The scheduler of a toolkit's event loop.
#pragma once

#include "Scheduler.h"

#include <QTimer>

#include <utility>

namespace platform {

/// Waits with one-shot timers of millisecond precision; none runs when nothing is pending.
class QtScheduler final : public Scheduler {
public:
    void after(std::chrono::milliseconds delay, std::function<void()> task) override
    {
        QTimer::singleShot(delay, Qt::PreciseTimer, std::move(task));
    }
};

} // namespace platform
