#include "DateText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace platform {
namespace {

Timestamp moment(const char* text)
{
    return *parseIso8601(text);
}

TEST(DateText, WritesTheAbbreviatedDateAndTheShortTimeOfTheLocale)
{
    struct Case {
        const char* locale;
        const char* timeZone;
        const char* time;
        const char* text;
    };
    // English puts U+202F, a narrow space that does not break, before AM and PM.
    const std::vector<Case> cases {
        { "en_US.UTF-8", "UTC", "2026-11-22T16:18:59Z", "Nov 22, 2026, 4:18\u202FPM" },
        { "en_GB.UTF-8", "UTC", "2026-11-22T16:18:00Z", "22 Nov 2026, 16:18" },
        { "de_DE.UTF-8", "UTC", "2026-11-22T16:18:00Z", "22.11.2026, 16:18" },
        { "de_DE@euro", "Europe/Berlin", "2026-07-01T23:30:00Z", "02.07.2026, 01:30" },
        { "uz_UZ@cyrillic", "UTC", "2026-11-22T16:18:00Z", "22 ноя, 2026 16:18" },
        { "ja_JP.eucJP", "Asia/Tokyo", "2026-11-22T16:18:00Z", "2026/11/23 1:18" },
        { "C", "UTC", "2026-11-22T00:05:00Z",
            "Nov 22, 2026, 12:05\u202F"
            "AM" },
        { "C.UTF-8", "America/New_York", "2026-03-08T07:00:00Z",
            "Mar 8, 2026, 3:00\u202F"
            "AM" },
        { "POSIX", "UTC", "1969-12-31T23:59:59Z", "Dec 31, 1969, 11:59\u202FPM" },
        { "", "UTC", "9999-12-31T23:59:59Z", "Dec 31, 9999, 11:59\u202FPM" },
    };
    for (const auto& [locale, zone, time, text] : cases)
        EXPECT_EQ(DateText(locale, zone)(moment(time)), text) << locale << " " << zone;
}

/// ICU itself does not survive some of these.
TEST(DateText, WritesEnglishForWhatNamesNoLocale)
{
    const auto time = moment("2026-11-22T16:18:00Z");
    for (const std::string name : { "not a locale", "zzzzzzzzzzzzzzzzzzzz", "abcdefghijklm_XX",
             "/usr/share/i18n/locales/de_DE", "en__US", "_", "de_DE-", "d\u00E9_DE", ".UTF-8",
             "@euro" })
        EXPECT_EQ(DateText(name, "UTC")(time), DateText("en_US", "UTC")(time)) << name;
}

void setVariable(const char* name, const char* value)
{
    if (value)
        ::setenv(name, value, 1);
    else
        ::unsetenv(name);
}

TEST(DateText, TakesTheLocaleThatTheUserSetForDates)
{
    struct Case {
        const char* all;
        const char* time;
        const char* lang;
        const char* locale;
    };
    const std::vector<Case> cases {
        { "ja_JP.UTF-8", "de_DE.UTF-8", "en_US.UTF-8", "ja_JP.UTF-8" },
        { nullptr, "de_DE.UTF-8", "en_US.UTF-8", "de_DE.UTF-8" },
        { "", "", "en_US.UTF-8", "en_US.UTF-8" },
        { nullptr, nullptr, nullptr, "C" },
    };
    for (const auto& [all, time, lang, locale] : cases) {
        setVariable("LC_ALL", all);
        setVariable("LC_TIME", time);
        setVariable("LANG", lang);
        EXPECT_EQ(DateText::userLocale(), locale);
    }
}

} // namespace
} // namespace platform
