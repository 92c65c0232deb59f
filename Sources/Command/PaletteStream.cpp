#include "PaletteStream.h"

#include "PaletteGenerator.h"
#include "PaletteModelsJson.h"
#include "StandardStreams.h"
#include "Text.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <poll.h>
#include <unistd.h>

namespace tintwell {

namespace {

class Stream {
public:
    Stream(int input, int output, int diagnostics)
        : input_(input)
        , output_(output)
        , diagnostics_(diagnostics)
        , buffer_(longestStreamLine + 1)
    {
        written_.reserve(2 * flushSize);
    }

    Report run()
    {
        while (goesOn() && fill())
            takeLines();
        if (goesOn() && (filled_ > 0 || skipping_))
            takeLine({ buffer_.data(), filled_ });
        flush();
        if (!failure_.empty())
            return Report::failure(failure_);
        return { .code = allGood_ && !outputEnded_ ? ExitCode::done : ExitCode::failed };
    }

private:
    static constexpr std::size_t flushSize = std::size_t { 256 } * 1024;

    [[nodiscard]] bool goesOn() const { return failure_.empty() && !outputEnded_; }

    /// Reads what is there behind the unfinished line; false at the end of the input.
    bool fill()
    {
        pollfd waiting { input_, POLLIN, 0 };
        if (!written_.empty() && poll(&waiting, 1, 0) == 0)
            flush();
        while (true) {
            const auto count = read(input_, buffer_.data() + filled_, buffer_.size() - filled_);
            if (count >= 0) {
                filled_ += static_cast<std::size_t>(count);
                return count > 0;
            }
            if (errno == EAGAIN)
                poll(&waiting, 1, -1);
            else if (errno != EINTR)
                break;
        }
        failure_ = "standard input cannot be read: " + platform::reasonText(errno);
        return false;
    }

    /// Takes the finished lines and moves the rest to the front of the buffer.
    void takeLines()
    {
        std::size_t at = 0;
        while (goesOn()) {
            const void* end = std::memchr(buffer_.data() + at, '\n', filled_ - at);
            if (end == nullptr)
                break;
            const auto length
                = static_cast<std::size_t>(static_cast<const char*>(end) - (buffer_.data() + at));
            takeLine({ buffer_.data() + at, length });
            at += length + 1;
        }
        filled_ -= at;
        std::memmove(buffer_.data(), buffer_.data() + at, filled_);
        if (filled_ == buffer_.size()) {
            skipping_ = true;
            filled_ = 0;
        }
    }

    void takeLine(std::string_view line)
    {
        ++lineNumber_;
        if (skipping_) {
            skipping_ = false;
            reject("longer than " + std::to_string(longestStreamLine) + " bytes");
            return;
        }
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        const auto source = RGBAColor::fromHex(line);
        if (!source) {
            reject(notAColor(line));
            return;
        }
        const auto done = appendJson(written_, generator_.generate(*source), JsonStyle::compact);
        if (!done) {
            reject(done.error().description);
            return;
        }
        written_ += '\n';
        if (written_.size() >= flushSize)
            flush();
    }

    void reject(const std::string& reason)
    {
        // First what came before, so that both streams read in order on one terminal.
        flush();
        allGood_ = false;
        const auto line
            = "tintwell-cli: line " + std::to_string(lineNumber_) + ": " + reason + "\n";
        // With standard error gone too there is nobody left to tell; the exit code still does.
        static_cast<void>(writeAll(diagnostics_, line));
    }

    void flush()
    {
        if (outputEnded_)
            return;
        const int error = writeAll(output_, written_);
        written_.clear();
        outputEnded_ = error != 0;
        if (error != 0 && error != EPIPE)
            failure_ = "standard output cannot be written: " + platform::reasonText(error);
    }

    int input_;
    int output_;
    int diagnostics_;
    PaletteGenerator generator_;
    std::vector<char> buffer_;
    std::size_t filled_ = 0;
    std::string written_;
    long long lineNumber_ = 0;
    bool skipping_ = false;
    bool allGood_ = true;
    bool outputEnded_ = false;
    std::string failure_;
};

} // namespace

Report streamPalettes(int input, int output, int diagnostics)
{
    return Stream(input, output, diagnostics).run();
}

} // namespace tintwell
