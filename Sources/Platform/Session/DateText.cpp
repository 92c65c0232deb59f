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

/// The modifiers of the environment that name a script, which ICU writes behind the language.
constexpr std::array scripts {
    std::pair { std::string_view("@cyrillic"), "_Cyrl" },
    std::pair { std::string_view("@devanagari"), "_Deva" },
    std::pair { std::string_view("@iqtelif"), "_Latn" },
    std::pair { std::string_view("@latin"), "_Latn" },
};

/// ICU's name for a locale of the environment; the plain "C" and what names no locale write dates
/// as English does.
std::string icuLocale(std::string_view name)
{
    const auto plain = name.substr(0, name.find_first_of(".@"));
    if (plain == "C" || plain == "POSIX" || !isLocaleName(plain))
        return "en_US";
    std::string locale(plain);
    for (const auto& [modifier, script] : scripts)
        if (name.ends_with(modifier))
            locale.insert(std::min(locale.find('_'), locale.size()), script);
    return locale;
}

} // namespace

struct DateText::Format {
    std::string locale;
    std::u16string timeZone;
    icu::LocalUDateFormatPointer handle {};

    void open()
    {
        auto status = U_ZERO_ERROR;
        handle.adoptInstead(udat_open(UDAT_SHORT, UDAT_MEDIUM, locale.c_str(),
            timeZone.empty() ? nullptr : timeZone.c_str(), static_cast<int32_t>(timeZone.size()),
            nullptr, 0, &status));
    }
};

DateText::DateText(const std::string& locale, const std::string& timeZone)
    : format_(std::make_shared<Format>(
        Format { icuLocale(locale), std::u16string(timeZone.begin(), timeZone.end()) }))
{
}

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
    auto& handle = format_->handle;
    if (handle.isNull())
        format_->open();
    std::array<UChar, 128> text {};
    auto status = U_ZERO_ERROR;
    const auto milliseconds = static_cast<UDate>(time.time_since_epoch().count());
    const auto length = handle.isValid() ? udat_format(handle.getAlias(), milliseconds, text.data(),
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
