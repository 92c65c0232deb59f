#include "PaletteStream.h"

#include "ColorInput.h"
#include "ColorText.h"
#include "FileDescriptor.h"
#include "PaletteGenerator.h"
#include "PaletteModelsJson.h"
#include "StandardStreams.h"
#include "Text.h"

#include <cerrno>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include <sys/eventfd.h>
#include <unistd.h>

namespace tintwell {

namespace {

/// What a few lines became: palettes, each stretch with the complaint that follows it.
struct Answer {
    std::string output {};
    std::string complaint {};
};
using Answers = std::vector<Answer>;

void answerLine(const LineReader::Line& line, Answers& answers)
{
    if (!line.isTooLong && isBlankOrComment(line.text))
        return;
    const auto reject = [&](const std::string& reason) {
        answers.back().complaint
            = "tintwell-cli: line " + std::to_string(line.number) + ": " + reason + "\n";
        answers.emplace_back();
    };
    if (line.isTooLong) {
        reject("longer than " + std::to_string(longestInputLine) + " bytes");
        return;
    }
    const auto source = colorFromText(line.text);
    if (!source) {
        reject(notAColor(line.text));
        return;
    }
    auto& output = answers.back().output;
    // A text gives components of 0…1, whose palettes can always be written.
    static_cast<void>(appendJson(output, PaletteGenerator().generate(*source), JsonStyle::compact));
    output += '\n';
}

/// Threads that each take a few lines, answer them, and leave the answers to be written in order.
class Stream {
public:
    Stream(int input, int output, int diagnostics, unsigned jobs)
        : output_(output)
        , diagnostics_(diagnostics)
        , mostWaiting_(4 * static_cast<long long>(jobs))
        , stop_(eventfd(0, EFD_CLOEXEC))
        , reader_(input, stop_.number())
    {
    }

    Report run(unsigned jobs)
    {
        {
            std::vector<std::jthread> others;
            try {
                for (unsigned job = 1; job < jobs; ++job)
                    others.emplace_back([this] { work(); });
            } catch (const std::system_error&) {
                // Those that are there do it all.
            }
            work();
        }
        if (failure_.empty() && reader_.error() != 0)
            failure_ = "standard input cannot be read: " + platform::reasonText(reader_.error());
        if (!failure_.empty())
            return Report::failure(failure_);
        return { .code = allGood_ && !outputEnded_ ? ExitCode::done : ExitCode::failed };
    }

private:
    void work()
    {
        constexpr std::size_t linesAtATime = 8;
        while (true) {
            std::vector<LineReader::Line> lines;
            long long turn = 0;
            {
                const std::lock_guard lock(inputMutex_);
                lines = reader_.take(linesAtATime);
                turn = lines.empty() ? 0 : takenTurns_++;
            }
            if (lines.empty())
                return;
            Answers answers(1);
            answers.back().output = takeSpare();
            for (const auto& line : lines)
                answerLine(line, answers);
            deliver(turn, std::move(answers));
        }
    }

    /// A text that has been written: making one anew for every few lines costs a tenth of the time.
    std::string takeSpare()
    {
        const std::lock_guard lock(outputMutex_);
        if (spare_.empty())
            return {};
        auto text = std::move(spare_.back());
        spare_.pop_back();
        text.clear();
        return text;
    }

    /// Writes all answers whose turn it is, or leaves these to the thread that is writing.
    void deliver(long long turn, Answers answers)
    {
        std::unique_lock lock(outputMutex_);
        room_.wait(lock, [&] { return turn < writtenTurns_ + mostWaiting_; });
        waiting_.emplace(turn, std::move(answers));
        if (isWriting_)
            return;
        isWriting_ = true;
        while (!waiting_.empty() && waiting_.begin()->first == writtenTurns_) {
            auto next = waiting_.extract(waiting_.begin());
            lock.unlock();
            write(next.mapped());
            lock.lock();
            spare_.push_back(std::move(next.mapped().front().output));
            ++writtenTurns_;
            room_.notify_all();
        }
        isWriting_ = false;
    }

    void write(const Answers& answers)
    {
        for (const auto& answer : answers) {
            if (outputEnded_)
                return;
            const int error = writeAll(output_, answer.output);
            if (error != 0)
                end(error);
            else if (!answer.complaint.empty()) {
                allGood_ = false;
                // With standard error gone too there is nobody left to tell; the exit code does.
                static_cast<void>(writeAll(diagnostics_, answer.complaint));
            }
        }
    }

    void end(int error)
    {
        outputEnded_ = true;
        if (error != EPIPE)
            failure_ = "standard output cannot be written: " + platform::reasonText(error);
        eventfd_write(stop_.number(), 1);
    }

    int output_;
    int diagnostics_;
    long long mostWaiting_;
    platform::FileDescriptor stop_;

    std::mutex inputMutex_;
    LineReader reader_;
    long long takenTurns_ = 0;

    std::mutex outputMutex_;
    std::condition_variable room_;
    std::map<long long, Answers> waiting_;
    std::vector<std::string> spare_;
    long long writtenTurns_ = 0;
    bool isWriting_ = false;

    // Only the thread that is writing touches these.
    bool allGood_ = true;
    bool outputEnded_ = false;
    std::string failure_;
};

} // namespace

Report streamPalettes(int input, int output, int diagnostics, unsigned jobs)
{
    return Stream(input, output, diagnostics, jobs).run(jobs);
}

} // namespace tintwell
