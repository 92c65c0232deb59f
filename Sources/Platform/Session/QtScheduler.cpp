#include "QtScheduler.h"

#include <QTimer>

#include <utility>

namespace platform {

void QtScheduler::after(std::chrono::milliseconds delay, std::function<void()> task)
{
    QTimer::singleShot(delay, Qt::PreciseTimer, std::move(task));
}

} // namespace platform
