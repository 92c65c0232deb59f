// SIGTERM, SIGINT and SIGHUP as an orderly end.
#pragma once

#include "FileDescriptor.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <functional>

namespace platform {

/// Calls `end` on the main thread when the process is asked to end; a signal that it was started to
/// ignore stays ignored. One object a process.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> end);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    static constexpr std::array signals { SIGTERM, SIGINT, SIGHUP };

    FileDescriptor wakeUp_;
    QSocketNotifier notifier_;
    std::array<struct sigaction, signals.size()> before_ {};
};

} // namespace platform
