#include "Terminal.h"

#include "Text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <numeric>

#include <sys/ioctl.h>
#include <unistd.h>

namespace tintwell {

namespace {

constexpr std::string_view replacement = "\uFFFD";

bool steersTerminal(utf8proc_int32_t codepoint)
{
    const auto category = utf8proc_category(codepoint);
    // Marks that turn the writing direction make one text look like another.
    const bool turns = codepoint == 0x061C || codepoint == 0x200E || codepoint == 0x200F
        || (codepoint >= 0x202A && codepoint <= 0x202E)
        || (codepoint >= 0x2066 && codepoint <= 0x2069);
    return turns || category == UTF8PROC_CATEGORY_CC || category == UTF8PROC_CATEGORY_ZL
        || category == UTF8PROC_CATEGORY_ZP;
}

std::string_view variable(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? std::string_view() : std::string_view(value);
}

/// The three components of a colour as "110;86;207".
std::string channels(const RGBAColor& color)
{
    const auto [red, green, blue, alpha] = color.bytes();
    return std::to_string(red) + ";" + std::to_string(green) + ";" + std::to_string(blue);
}

/// The nearest of the 6 × 6 × 6 cube and the grey ramp of the 256 colours.
int nearestIndex(const std::array<int, 3>& color)
{
    constexpr std::array levels { 0, 95, 135, 175, 215, 255 };
    constexpr int firstOfCube = 16;
    constexpr int firstGrey = 232;
    constexpr int mostGrey = 23;
    const auto distance = [&color](const std::array<int, 3>& other) {
        return std::transform_reduce(color.begin(), color.end(), other.begin(), 0, std::plus<>(),
            [](int a, int b) { return (a - b) * (a - b); });
    };
    int cube = 0;
    std::array<int, 3> inCube {};
    for (std::size_t at = 0; at < color.size(); ++at) {
        const auto* const nearest = std::min_element(levels.begin(), levels.end(),
            [&](int a, int b) { return std::abs(a - color[at]) < std::abs(b - color[at]); });
        inCube[at] = *nearest;
        cube = cube * static_cast<int>(levels.size()) + static_cast<int>(nearest - levels.begin());
    }
    const int mean = (color[0] + color[1] + color[2]) / 3;
    const int step = std::clamp((mean - 3) / 10, 0, mostGrey);
    const int grey = 8 + 10 * step;
    return distance({ grey, grey, grey }) < distance(inCube) ? firstGrey + step
                                                             : firstOfCube + cube;
}

/// The numbers "R;G;B" at the front of `text` as the number of one of the 256 colours; takes them
/// off.
std::string takeIndexed(std::string_view& text)
{
    std::array<int, 3> color {};
    for (auto& channel : color) {
        const auto read = std::from_chars(text.data(), text.data() + text.size(), channel);
        text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
        if (&channel != &color.back() && text.starts_with(';'))
            text.remove_prefix(1);
    }
    return std::to_string(nearestIndex(color));
}

} // namespace

ColorDepth colorDepth(const TerminalEnvironment& environment, ColorChoice choice)
{
    const auto& force = environment.colorForce;
    const bool isForced = choice == ColorChoice::always
        || (environment.noColor.empty() && !force.empty() && force != "0");
    const bool isWanted = isForced || (environment.isTerminal && environment.noColor.empty());
    if (choice == ColorChoice::never || !isWanted)
        return ColorDepth::none;
    const auto& announced = environment.colorTerm;
    const bool isCapable = environment.term != "dumb" && !environment.term.empty();
    if (isCapable
        && (announced == "truecolor" || announced == "24bit"
            || environment.term.ends_with("-direct")))
        return ColorDepth::full;
    const bool isIndexed = environment.term.find("256color") != std::string_view::npos;
    return isIndexed || isForced ? ColorDepth::indexed : ColorDepth::none;
}

Terminal terminalBehind(int descriptor, ColorChoice choice)
{
    // In GNU screen COLORTERM is what the terminal around it announced.
    const bool isInScreen = !variable("STY").empty();
    Terminal terminal;
    terminal.isTerminal = isatty(descriptor) == 1;
    terminal.depth
        = colorDepth({ .isTerminal = terminal.isTerminal,
                         .term = variable("TERM"),
                         .colorTerm = isInScreen ? std::string_view() : variable("COLORTERM"),
                         .noColor = variable("NO_COLOR"),
                         .colorForce = variable("CLICOLOR_FORCE") },
            choice);
    winsize size {};
    if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        terminal.columns = size.ws_col;
    return terminal;
}

std::string printable(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        const auto character = platform::takeCharacter(text);
        const bool shown = character.codePoint >= 0 && !steersTerminal(character.codePoint);
        result += shown ? character.bytes : replacement;
    }
    return result;
}

std::string inQuotes(std::string_view text)
{
    constexpr std::size_t longest = 40;
    const auto whole = printable(text.substr(0, 8 * longest));
    std::string_view rest = whole;
    std::string result = "\"";
    for (std::size_t count = 0; count < longest && !rest.empty(); ++count)
        result += platform::takeCharacter(rest).bytes;
    return result + (rest.empty() ? "\"" : "…\"");
}

std::string withEscapedControls(std::string_view json)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    result.reserve(json.size());
    for (std::size_t at = 0; at < json.size(); ++at) {
        const auto byte = static_cast<std::uint8_t>(json[at]);
        const auto next = at + 1 < json.size() ? static_cast<std::uint8_t>(json[at + 1]) : 0U;
        const bool isPair = byte == 0xC2 && next >= 0x80 && next <= 0x9F;
        if (byte != 0x7F && !isPair) {
            result += json[at];
            continue;
        }
        const auto code = isPair ? next : byte;
        result += "\\u00";
        result += digits[code >> 4U];
        result += digits[code & 15U];
        at += isPair ? 1 : 0;
    }
    return result;
}

int displayWidth(std::string_view text)
{
    int width = 0;
    while (!text.empty())
        width += utf8proc_charwidth(platform::takeCharacter(text).codePoint);
    return width;
}

std::string fitted(std::string_view text, int columns)
{
    const int width = displayWidth(text);
    if (width <= columns)
        return std::string(text) + std::string(static_cast<std::size_t>(columns - width), ' ');
    std::string result;
    int used = 0;
    while (!text.empty()) {
        const auto character = platform::takeCharacter(text);
        const int cells = utf8proc_charwidth(character.codePoint);
        if (used + cells > columns - 1)
            break;
        result += character.bytes;
        used += cells;
    }
    const auto gap = static_cast<std::size_t>(columns > used ? columns - used - 1 : 0);
    return result + (columns > 0 ? "…" : "") + std::string(gap, ' ');
}

std::string painted(std::string_view text, const Paint& paint)
{
    std::string codes;
    if (paint.bold)
        codes += ";1";
    if (paint.faint)
        codes += ";2";
    if (paint.ink)
        codes += ";38;2;" + channels(*paint.ink);
    if (paint.fill)
        codes += ";48;2;" + channels(*paint.fill);
    if (codes.empty())
        return std::string(text);
    return "\x1b[" + codes.substr(1) + "m" + std::string(text) + "\x1b[0m";
}

std::string withIndexedColors(std::string_view text)
{
    constexpr std::string_view deep = "8;2;";
    std::string result;
    bool isInSequence = false;
    while (!text.empty()) {
        if (isInSequence && text.starts_with(deep)) {
            text.remove_prefix(deep.size());
            result += "8;5;" + takeIndexed(text);
            continue;
        }
        isInSequence = text.front() == '\x1b' || (isInSequence && text.front() != 'm');
        result += text.front();
        text.remove_prefix(1);
    }
    return result;
}

} // namespace tintwell
