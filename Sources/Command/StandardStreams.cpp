#include "StandardStreams.h"

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace tintwell {

int writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const auto count = write(descriptor, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            // Somebody made the descriptor non-blocking for us; wait as a blocking one would.
            pollfd waiting { descriptor, POLLOUT, 0 };
            poll(&waiting, 1, -1);
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

int closeChecked(int descriptor)
{
    return close(descriptor) == 0 || errno == EINTR ? 0 : errno;
}

void reserveStandardDescriptors()
{
    for (const int descriptor : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO }) {
        if (fcntl(descriptor, F_GETFD) != -1)
            continue;
        // The lowest free number is this one, since all below it are open by now.
        const int mode = descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (open("/dev/null", mode) != descriptor)
            return;
    }
}

} // namespace tintwell
