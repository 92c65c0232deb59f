// Test bodies in a process of their own: with limits or rights that must not stay.
#pragma once

#include <csignal>
#include <functional>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

/// Runs `body` in a child and tells whether it returned true.
inline bool holdsInChild(const std::function<bool()>& body)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(body() ? 0 : 1);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// The same as a user whom file modes stop, which they do not stop the superuser.
inline bool holdsForOrdinaryUser(const std::function<bool()>& body)
{
    constexpr uid_t nobody = 65534;
    return holdsInChild([&] {
        return (::geteuid() != 0 || (::setgid(nobody) == 0 && ::setuid(nobody) == 0)) && body();
    });
}

/// The same where no file can grow beyond `maxBytes`, as on a full disk.
inline bool holdsWithFullDisk(rlim_t maxBytes, const std::function<bool()>& body)
{
    return holdsInChild([&] {
        const rlimit limit { maxBytes, maxBytes };
        return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &limit) == 0
            && body();
    });
}

} // namespace platform
