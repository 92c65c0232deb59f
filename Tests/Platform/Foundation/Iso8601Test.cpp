#include "Iso8601.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using std::chrono::milliseconds;
using std::chrono::sys_days;

Timestamp at(int year, unsigned month, unsigned day, int hour, int minute, int second)
{
    return sys_days { std::chrono::year { year } / static_cast<int>(month) / static_cast<int>(day) }
    + std::chrono::hours { hour } + std::chrono::minutes { minute }
    + std::chrono::seconds { second };
}

TEST(Iso8601, ReadsZuluAndOffsets)
{
    const struct {
        const char* text;
        Timestamp expected;
    } rows[] = {
        { "2026-11-22T10:00:00Z", at(2026, 11, 22, 10, 0, 0) },
        { "1970-01-01T00:00:00Z", Timestamp {} },
        { "1969-12-31T23:59:59Z", Timestamp { milliseconds { -1000 } } },
        { "2026-11-22T10:00:00+00:00", at(2026, 11, 22, 10, 0, 0) },
        { "2026-11-22T10:00:00-00:00", at(2026, 11, 22, 10, 0, 0) },
        { "2026-11-22T10:00:00+05:45", at(2026, 11, 22, 4, 15, 0) },
        { "2026-11-22T10:00:00-03:30", at(2026, 11, 22, 13, 30, 0) },
        { "2026-01-01T00:30:00+23:59", at(2025, 12, 31, 0, 31, 0) },
        { "2024-02-29T12:00:00Z", at(2024, 2, 29, 12, 0, 0) },
        { "2000-02-29T12:00:00Z", at(2000, 2, 29, 12, 0, 0) },
        { "2024-02-29T23:30:00-01:00", at(2024, 3, 1, 0, 30, 0) },
        { "0000-01-01T00:00:00Z", at(0, 1, 1, 0, 0, 0) },
        { "0000-01-01T00:00:00-01:00", at(0, 1, 1, 1, 0, 0) },
        { "9999-12-31T23:59:59Z", at(9999, 12, 31, 23, 59, 59) },
    };
    for (const auto& row : rows)
        EXPECT_EQ(parseIso8601(row.text), row.expected) << row.text;
}

TEST(Iso8601, RefusesEverythingElse)
{
    const char* const rows[] = {
        "",
        "Z",
        "2026-11-22",
        "2026-11-22T10:00:00",
        "2026-11-22T10:00Z",
        "2026-11-22T10Z",
        "2026-11-22T10:00:00.5Z",
        "2026-11-22T10:00:00.000Z",
        "2026-11-22T10:00:00,5Z",
        "2026-11-22t10:00:00Z",
        "2026-11-22T10:00:00z",
        "2026-11-22 10:00:00Z",
        " 2026-11-22T10:00:00Z",
        "2026-11-22T10:00:00Z ",
        "2026-11-22T10:00:00ZZ",
        "2026-11-22T10:00:00+0100",
        "2026-11-22T10:00:00+01",
        "2026-11-22T10:00:00+1:00",
        "2026-11-22T10:00:00+24:00",
        "2026-11-22T10:00:00+01:60",
        "2026-11-22T10:00:00+01-00",
        "2026-11-22T10:00:00 01:00",
        "2026-11-22T10:00:00+01:00Z",
        "20261122T100000Z",
        "2026-326T10:00:00Z",
        "2026-W47-7T10:00:00Z",
        "26-11-22T10:00:00Z",
        "+2026-11-22T10:00:00Z",
        "-026-11-22T10:00:00Z",
        "12026-11-22T10:00:00Z",
        "2026/11/22T10:00:00Z",
        "2026-00-22T10:00:00Z",
        "2026-13-22T10:00:00Z",
        "2026-11-00T10:00:00Z",
        "2026-11-31T10:00:00Z",
        "2026-02-29T10:00:00Z",
        "1900-02-29T10:00:00Z",
        "2026-11-22T24:00:00Z",
        "2026-11-22T10:60:00Z",
        "2016-12-31T23:59:60Z",
        "2026-11-22T10:00:61Z",
        "2026-11-22T-1:00:00Z",
        "2026-11-22T1a:00:00Z",
        "0000-01-01T00:00:00+00:01",
        "9999-12-31T23:59:59-00:01",
        "２026-11-22T10:00:0Z",
    };
    for (const auto* row : rows)
        EXPECT_EQ(parseIso8601(row), std::nullopt) << row;
    EXPECT_EQ(parseIso8601(std::string_view("2026-11-22T10:00:00\0", 20)), std::nullopt);
}

TEST(Iso8601, WritesUtcAndDropsFractions)
{
    const auto moment = at(2026, 11, 22, 10, 0, 0);
    EXPECT_EQ(formatIso8601(moment), "2026-11-22T10:00:00Z");
    EXPECT_EQ(formatIso8601(moment + milliseconds { 999 }), "2026-11-22T10:00:00Z");
    EXPECT_EQ(formatIso8601(Timestamp { milliseconds { -1 } }), "1969-12-31T23:59:59Z");
    EXPECT_EQ(formatIso8601(at(7, 1, 2, 3, 4, 5)), "0007-01-02T03:04:05Z");
    EXPECT_EQ(formatIso8601(Timestamp::min()), "0000-01-01T00:00:00Z");
    EXPECT_EQ(formatIso8601(Timestamp::max()), "9999-12-31T23:59:59Z");
}

TEST(Iso8601, EveryDayOfEightCenturiesComesBack)
{
    for (auto day = sys_days { std::chrono::year { 1600 } / 1 / 1 };
         day < sys_days { std::chrono::year { 2400 } / 1 / 1 }; day += std::chrono::days { 1 }) {
        const Timestamp moment = day + std::chrono::seconds { 86399 };
        ASSERT_EQ(parseIso8601(formatIso8601(moment)), moment);
    }
}

} // namespace
} // namespace platform
