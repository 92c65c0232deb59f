#include "TerminationSignals.h"

#include <utility>

#include <sys/eventfd.h>

namespace platform {

namespace {

int wakeUp = -1; // NOLINT: a signal handler reaches nothing else

void handle(int /*signal*/)
{
    eventfd_write(wakeUp, 1);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> end)
    : wakeUp_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , notifier_(wakeUp_.number(), QSocketNotifier::Read)
{
    wakeUp = wakeUp_.number();
    QObject::connect(
        &notifier_, &QSocketNotifier::activated, &notifier_, [this, end = std::move(end)] {
            notifier_.setEnabled(false);
            end();
        });
    struct sigaction action = {};
    action.sa_handler = handle;
    action.sa_flags = SA_RESTART;
    for (std::size_t index = 0; index < signals.size(); ++index) {
        sigaction(signals[index], nullptr, &before_[index]);
        // "nohup" ignores a signal for the program that it starts.
        if (before_[index].sa_handler != SIG_IGN)
            sigaction(signals[index], &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    for (std::size_t index = 0; index < signals.size(); ++index)
        sigaction(signals[index], &before_[index], nullptr);
}

} // namespace platform
