#include "DetachedProcess.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

DetachedProcess::DetachedProcess(const std::string& program, std::vector<std::string> arguments)
{
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (auto& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    for (const int stream : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO })
        posix_spawn_file_actions_addopen(&files, stream, "/dev/null", O_RDWR, 0);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    if (posix_spawn(&id_, program.c_str(), &files, &attributes, pointers.data(), environ) != 0)
        id_ = -1;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
}

bool DetachedProcess::hasFailed() const
{
    if (id_ == -1)
        return true;
    int status = 0;
    return waitpid(id_, &status, WNOHANG) == id_ && status != 0;
}

} // namespace platform
