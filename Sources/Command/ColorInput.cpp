#include "ColorInput.h"

#include "Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace tintwell {

bool isBlankOrComment(std::string_view line)
{
    constexpr std::string_view space = " \t\r";
    const auto first = line.find_first_not_of(space);
    if (first == std::string_view::npos)
        return true;
    line.remove_prefix(first);
    return line.front() == '#'
        && (line.size() == 1 || space.find(line[1]) != std::string_view::npos);
}

LineReader::LineReader(int descriptor, int wake)
    : descriptor_(descriptor)
    , wake_(wake)
    , buffer_(longestInputLine + 1)
{
}

std::vector<LineReader::Line> LineReader::take(std::size_t most)
{
    std::vector<Line> lines;
    Line line;
    while (lines.size() < most) {
        if (cutLine(line))
            lines.push_back(std::move(line));
        else if (!lines.empty() || !fill())
            break;
    }
    return lines;
}

/// Takes the next finished line off the buffer; at the end of the input also an unfinished one.
bool LineReader::cutLine(Line& line)
{
    const std::string_view rest(buffer_.data() + begin_, end_ - begin_);
    const auto length = std::min(rest.find('\n'), rest.size());
    if (length == rest.size() && !(ended_ && (length > 0 || skipping_)))
        return false;
    auto text = rest.substr(0, length);
    if (text.ends_with('\r'))
        text.remove_suffix(1);
    line = { ++lineNumber_, std::string(skipping_ ? std::string_view() : text), skipping_ };
    skipping_ = false;
    begin_ += std::min(length + 1, rest.size());
    return true;
}

/// As `read`, after waiting for something to read; fails with ECANCELED when it was woken.
ssize_t LineReader::receive()
{
    while (true) {
        std::array<pollfd, 2> waiting { pollfd { descriptor_, POLLIN, 0 },
            pollfd { wake_, POLLIN, 0 } };
        poll(waiting.data(), waiting.size(), -1);
        if (waiting[1].revents != 0) {
            errno = ECANCELED;
            return -1;
        }
        const auto count = read(descriptor_, buffer_.data() + end_, buffer_.size() - end_);
        if (count >= 0 || (errno != EAGAIN && errno != EINTR))
            return count;
    }
}

/// Reads what is there behind the unfinished line; false when nothing can follow.
bool LineReader::fill()
{
    if (ended_)
        return false;
    std::copy(buffer_.data() + begin_, buffer_.data() + end_, buffer_.data());
    end_ -= std::exchange(begin_, 0);
    if (end_ == buffer_.size()) {
        skipping_ = true;
        end_ = 0;
    }
    const auto count = receive();
    if (count > 0) {
        end_ += static_cast<std::size_t>(count);
        return true;
    }
    ended_ = true;
    if (count < 0) {
        error_ = errno == ECANCELED ? 0 : errno;
        end_ = 0;
        skipping_ = false;
    }
    // The end of the input also ends its last line.
    return end_ > 0 || skipping_;
}

platform::Result<std::vector<std::string>> readColorLines(int descriptor)
{
    constexpr std::size_t mostLines = 1000;
    LineReader reader(descriptor);
    std::vector<std::string> colors;
    for (auto lines = reader.take(1); !lines.empty(); lines = reader.take(1)) {
        auto& line = lines.front();
        if (line.isTooLong || colors.size() == mostLines)
            return platform::Error { "standard input holds more than a few colors" };
        if (!isBlankOrComment(line.text))
            colors.push_back(std::move(line.text));
    }
    if (reader.error() != 0)
        return platform::Error { "standard input cannot be read: "
            + platform::reasonText(reader.error()) };
    return colors;
}

} // namespace tintwell
