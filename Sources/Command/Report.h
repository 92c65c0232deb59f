// What a command leaves behind: everything it prints, and how it ended.
#pragma once

#include "Result.h"
#include "RGBAColor.h"

#include <string>
#include <string_view>
#include <utility>

namespace tintwell {

/// The exit codes that scripts rely on.
enum class ExitCode { done = 0, failed = 1, usage = 2 };

/// `output` is complete when the command ended well and empty otherwise; `message` is one sentence
/// for standard error, without the program's name, or empty.
struct Report {
    ExitCode code = ExitCode::done;
    std::string output {};
    std::string message {};

    [[nodiscard]] static Report printed(std::string output)
    {
        return { .output = std::move(output) };
    }
    [[nodiscard]] static Report failure(std::string message)
    {
        return { .code = ExitCode::failed, .message = std::move(message) };
    }
    /// What was made for standard output, or the failure that kept it from being made.
    [[nodiscard]] static Report of(platform::Result<std::string> output)
    {
        return output ? printed(std::move(output).value()) : failure(output.error().description);
    }
    [[nodiscard]] static Report misuse(std::string message)
    {
        return { .code = ExitCode::usage, .message = std::move(message) };
    }
};

/// The sentence for a text that is no colour; it names the text and the forms that are accepted.
[[nodiscard]] std::string notAColor(std::string_view text);

/// The colour that `text` writes, or the sentence above.
[[nodiscard]] platform::Result<RGBAColor> readColor(std::string_view text);

} // namespace tintwell
