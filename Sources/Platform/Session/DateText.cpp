#include "DateText.h"

#include <unicode/udat.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace platform {

namespace {

/// Language, script, country and variant are letters and digits, eight at most each. ICU reads
/// through a null pointer for names with a longer language.
bool isLocaleName(std::string_view name)
{
    constexpr std::string_view alphanumerics
        = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    constexpr std::size_t longestPart = 8;
    for (std::size_t start = 0;;) {
        const auto end = std::min(name.find_first_of("_-", start), name.size());
        const auto part = name.substr(start, end - start);
        if (part.empty() || part.size() > longestPart
            || part.find_first_not_of(alphanumerics) != std::string_view::npos)
            return false;
        if (end == name.size())
            return true;
        start = end + 1;
    }
}

/// ICU's name for a locale of the environment; the plain "C" and what names no locale write dates
/// as English does.
std::string icuLocale(std::string_view name)
{
    const auto plain = name.substr(0, name.find_first_of(".@"));
    return plain == "C" || plain == "POSIX" || !isLocaleName(plain) ? "en_US" : std::string(plain);
}

std::u16string toUtf16(const std::string& ascii)
{
    return { ascii.begin(), ascii.end() };
}

} // namespace

struct DateText::Format {
    UDateFormat* handle = nullptr;

    Format(const std::string& locale, const std::string& timeZone)
    {
        const auto zone = toUtf16(timeZone);
        auto status = U_ZERO_ERROR;
        handle = udat_open(UDAT_SHORT, UDAT_MEDIUM, icuLocale(locale).c_str(),
            zone.empty() ? nullptr : zone.c_str(), static_cast<int32_t>(zone.size()), nullptr, 0,
            &status);
    }
    ~Format()
    {
        if (handle)
            udat_close(handle);
    }
    Format(const Format&) = delete;
    Format& operator=(const Format&) = delete;
};

DateText::DateText(std::string locale, std::string timeZone)
    : locale_(std::move(locale))
    , timeZone_(std::move(timeZone))
{
}

DateText::~DateText() = default;
DateText::DateText(DateText&&) noexcept = default;
DateText& DateText::operator=(DateText&&) noexcept = default;

std::string DateText::userLocale()
{
    for (const auto* name : { "LC_ALL", "LC_TIME", "LANG" }) {
        const auto* value = std::getenv(name);
        if (value && *value)
            return value;
    }
    return "C";
}

std::string DateText::operator()(Timestamp time) const
{
    if (!format_)
        format_ = std::make_unique<Format>(locale_, timeZone_);
    std::array<UChar, 128> text {};
    auto status = U_ZERO_ERROR;
    const auto milliseconds = static_cast<UDate>(time.time_since_epoch().count());
    const auto length = format_->handle ? udat_format(format_->handle, milliseconds, text.data(),
                            static_cast<int32_t>(text.size()), nullptr, &status)
                                        : 0;
    std::array<char, 3 * text.size() + 1> utf8 {};
    int32_t bytes = 0;
    if (length > 0 && U_SUCCESS(status))
        u_strToUTF8(
            utf8.data(), static_cast<int32_t>(utf8.size()), &bytes, text.data(), length, &status);
    return bytes > 0 && U_SUCCESS(status)
        ? std::string(utf8.data(), static_cast<std::size_t>(bytes))
        : formatIso8601(time);
}

} // namespace platform
