// Moments in time and their internet date-time text (RFC 3339).
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// A moment in UTC. Milliseconds reach far beyond the years 0000 to 9999 that the text form can
/// write.
using Timestamp = std::chrono::sys_time<std::chrono::milliseconds>;

/// What the system's clock shows.
[[nodiscard]] Timestamp currentTime();

/// "2026-11-22T10:00:00Z": UTC, whole seconds; a fraction is dropped (towards the past). A moment
/// outside the years 0000 to 9999 is written as the nearest one inside.
[[nodiscard]] std::string formatIso8601(Timestamp time);

/// Reads "YYYY-MM-DDThh:mm:ss" followed by "Z" or an offset "+hh:mm" / "-hh:mm" of less than 24
/// hours. A fraction of a second, a missing time or zone, lower-case letters, a day that the
/// calendar does not have, a leap second (which this clock cannot tell from its neighbour), a
/// moment that in UTC lies outside the years 0000 to 9999, or anything around it gives nothing.
[[nodiscard]] std::optional<Timestamp> parseIso8601(std::string_view text);

} // namespace platform
