// The answer to a request to the X server.
#pragma once

#include <cstdlib>
#include <memory>

namespace platform {

struct FreeXcbReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// Null when the server has refused the request.
template <typename T> using XcbReply = std::unique_ptr<T, FreeXcbReply>;

} // namespace platform
