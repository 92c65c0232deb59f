// SIGTERM, SIGINT and SIGHUP as an orderly end.
#pragma once

#include <functional>
#include <memory>

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
    class Watch;
    std::unique_ptr<Watch> watch_;
};

} // namespace platform
