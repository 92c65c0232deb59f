#include "TerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>

#include <sys/eventfd.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::array signals { SIGTERM, SIGINT, SIGHUP };
int wakeUp = -1; // NOLINT: a signal handler reaches nothing else

void handle(int /*signal*/)
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(wakeUp, &one, sizeof one);
}

} // namespace

class TerminationSignals::Watch {
public:
    explicit Watch(std::function<void()> end)
        : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
        , notifier_(descriptor_, QSocketNotifier::Read)
    {
        wakeUp = descriptor_;
        QObject::connect(
            &notifier_, &QSocketNotifier::activated, &notifier_, [this, end = std::move(end)] {
                notifier_.setEnabled(false);
                end();
            });
        struct sigaction action = {};
        action.sa_handler = handle;
        action.sa_flags = SA_RESTART;
        for (std::size_t index = 0; index < signals.size(); ++index) {
            auto& before = before_[index];
            sigaction(signals[index], nullptr, &before);
            // "nohup" ignores a signal for the program that it starts.
            if (before.sa_handler != SIG_IGN)
                sigaction(signals[index], &action, nullptr);
        }
    }

    ~Watch()
    {
        for (std::size_t index = 0; index < signals.size(); ++index)
            sigaction(signals[index], &before_[index], nullptr);
        close(descriptor_);
    }

    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

private:
    std::array<struct sigaction, signals.size()> before_ {};
    int descriptor_;
    QSocketNotifier notifier_;
};

TerminationSignals::TerminationSignals(std::function<void()> end)
    : watch_(std::make_unique<Watch>(std::move(end)))
{
}

TerminationSignals::~TerminationSignals() = default;

} // namespace platform
