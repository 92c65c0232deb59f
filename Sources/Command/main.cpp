// tintwell-cli: the colour systems and the library of Tintwell without a display.
#include "CommandLine.h"
#include "StandardStreams.h"
#include "Text.h"

#include <cerrno>
#include <csignal>
#include <exception>

#include <unistd.h>

namespace {

using tintwell::ExitCode;
using tintwell::Report;

Report run(std::vector<std::string> arguments)
{
    try {
        auto parsed = tintwell::parseCommandLine(std::move(arguments));
        if (const auto* request = std::get_if<tintwell::Request>(&parsed))
            return tintwell::perform(
                *request, tintwell::terminalBehind(STDOUT_FILENO, request->colorChoice));
        return std::move(std::get<Report>(parsed));
    } catch (const std::exception& error) {
        return Report::failure(std::string("stopped by an unexpected failure: ") + error.what());
    }
}

/// Prints a report; a reader who went away early ends it without a word.
ExitCode deliver(Report report)
{
    int error = tintwell::writeAll(STDOUT_FILENO, report.output);
    if (error == 0 && !report.output.empty())
        error = tintwell::closeChecked(STDOUT_FILENO);
    if (error != 0)
        report.code = ExitCode::failed;
    if (error != 0 && error != EPIPE)
        report.message = "standard output cannot be written: " + platform::reasonText(error);
    if (!report.message.empty())
        // The exit code still tells when standard error is gone as well.
        static_cast<void>(
            tintwell::writeAll(STDERR_FILENO, "tintwell-cli: " + report.message + "\n"));
    return report.code;
}

} // namespace

int main(int argc, char** argv)
{
    tintwell::reserveStandardDescriptors();
    // A file that may not grow any more is an error of the write, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    std::vector<std::string> arguments;
    for (int at = 1; at < argc; ++at)
        arguments.emplace_back(argv[at]);
    return static_cast<int>(deliver(run(std::move(arguments))));
}
