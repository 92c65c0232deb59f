// Owns an open file.
#pragma once

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace platform {

/// Closes its descriptor when it goes; -1 stands for none.
class FileDescriptor {
public:
    explicit FileDescriptor(int number = -1)
        : number_(number)
    {
    }
    FileDescriptor(FileDescriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1))
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor()
    {
        if (number_ >= 0)
            ::close(number_);
    }

    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] bool isOpen() const { return number_ >= 0; }

private:
    int number_;
};

/// Repeats a system call that returns -1 for as long as a signal interrupts it.
template <typename Call> auto retryInterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

} // namespace platform
