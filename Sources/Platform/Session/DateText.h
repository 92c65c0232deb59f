// A moment as the user writes it: abbreviated date, then hours and minutes.
#pragma once

#include "Iso8601.h"

#include <memory>
#include <string>

namespace platform {

/// Formats moments in one locale and time zone. Keep one, or copies of one: its first text opens
/// the locale's data, which costs several hundred times what a text costs, and some megabytes.
class DateText {
public:
    /// `locale` as in the environment ("de_DE.UTF-8"), English when it names none; an empty
    /// `timeZone` is the user's own.
    explicit DateText(const std::string& locale, const std::string& timeZone = {});

    /// The locale that the user set for dates: $LC_ALL, $LC_TIME or $LANG.
    [[nodiscard]] static std::string userLocale();

    /// "Nov 22, 2026, 4:18 PM" in the locale's order and words; the internet date-time where the
    /// locale's data is missing.
    [[nodiscard]] std::string operator()(Timestamp time) const;

private:
    struct Format;
    std::shared_ptr<Format> format_;
};

} // namespace platform
