// A process that outlives the one that starts it.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace platform {

/// Runs in a session of its own, with nothing on its standard streams, so that neither the
/// terminal nor the pipe of whoever started it is held.
class DetachedProcess {
public:
    /// `arguments` begin with the program's own name.
    DetachedProcess(const std::string& program, std::vector<std::string> arguments);

    /// True if it could not be started, or has ended with another exit code than 0.
    [[nodiscard]] bool hasFailed() const;

private:
    pid_t id_ = -1;
};

} // namespace platform
