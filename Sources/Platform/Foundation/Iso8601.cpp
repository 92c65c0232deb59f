#include "Iso8601.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace platform {

namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

constexpr sys_seconds firstWritable
    = std::chrono::sys_days { std::chrono::year { 0 } / std::chrono::January / 1 };
constexpr sys_seconds lastWritable
    = std::chrono::sys_days { std::chrono::year { 9999 } / std::chrono::December / 31 }
    + seconds { 86399 };

constexpr std::size_t lengthWithoutZone = 19;
constexpr std::size_t offsetLength = 6;

/// The decimal number of exactly `count` digits at `start`, or -1.
int digits(std::string_view text, std::size_t start, std::size_t count)
{
    int number = 0;
    for (const char c : text.substr(start, count)) {
        if (c < '0' || c > '9')
            return -1;
        number = number * 10 + (c - '0');
    }
    return number;
}

bool inRange(int number, int first, int last)
{
    return number >= first && number <= last;
}

/// How far "+hh:mm" or "-hh:mm" is ahead of UTC.
std::optional<seconds> parseOffset(std::string_view text)
{
    if (text == "Z")
        return seconds { 0 };
    if (text.size() != offsetLength || (text[0] != '+' && text[0] != '-') || text[3] != ':')
        return std::nullopt;
    const int hours = digits(text, 1, 2);
    const int minutes = digits(text, 4, 2);
    if (!inRange(hours, 0, 23) || !inRange(minutes, 0, 59))
        return std::nullopt;
    const seconds ahead { hours * 3600 + minutes * 60 };
    return text[0] == '-' ? -ahead : ahead;
}

bool hasSeparators(std::string_view text)
{
    return text[4] == '-' && text[7] == '-' && text[10] == 'T' && text[13] == ':'
        && text[16] == ':';
}

} // namespace

Timestamp currentTime()
{
    return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

std::string formatIso8601(Timestamp time)
{
    const auto whole = std::clamp(std::chrono::floor<seconds>(time), firstWritable, lastWritable);
    const auto day = std::chrono::floor<std::chrono::days>(whole);
    const std::chrono::year_month_day date { day };
    const std::chrono::hh_mm_ss clock { whole - day };
    std::array<char, 80> text {};
    const int length = std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02ld:%02ld:%02ldZ",
        static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
        static_cast<unsigned>(date.day()), clock.hours().count(), clock.minutes().count(),
        clock.seconds().count());
    return { text.data(), static_cast<std::size_t>(length) };
}

std::optional<Timestamp> parseIso8601(std::string_view text)
{
    if (text.size() <= lengthWithoutZone || !hasSeparators(text))
        return std::nullopt;
    const int year = digits(text, 0, 4);
    const int month = digits(text, 5, 2);
    const int day = digits(text, 8, 2);
    const int hour = digits(text, 11, 2);
    const int minute = digits(text, 14, 2);
    const int second = digits(text, 17, 2);
    const auto offset = parseOffset(text.substr(lengthWithoutZone));
    if (year < 0 || month < 0 || day < 0 || !inRange(hour, 0, 23) || !inRange(minute, 0, 59)
        || !inRange(second, 0, 59) || !offset)
        return std::nullopt;
    const std::chrono::year_month_day date { std::chrono::year { year },
        std::chrono::month { static_cast<unsigned>(month) },
        std::chrono::day { static_cast<unsigned>(day) } };
    if (!date.ok())
        return std::nullopt;
    const sys_seconds utc
        = std::chrono::sys_days { date } + seconds { hour * 3600 + minute * 60 + second } - *offset;
    if (utc < firstWritable || utc > lastWritable)
        return std::nullopt;
    return utc;
}

} // namespace platform
