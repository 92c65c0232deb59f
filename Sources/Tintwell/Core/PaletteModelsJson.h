// The JSON form of the palette records, in both directions.
#pragma once

#include "JsonWriter.h"
#include "PaletteModels.h"
#include "Result.h"

#include <string>
#include <string_view>
#include <vector>

namespace tintwell {

using platform::JsonStyle;

/// Appends the JSON form of `record` to `out`: members in ascending order of their names, no
/// "detail" for a colour without one, dates in UTC without fraction. Fails, and leaves `out` as it
/// was, when a colour component is not finite or a text is not UTF-8. `Record` is one of the
/// palette records, from `RGBAColor` up, or a vector of `NamedColor` or `SavedPalette`.
template <typename Record>
[[nodiscard]] platform::Result<void> appendJson(
    std::string& out, const Record& record, JsonStyle style);

/// Reads the JSON form of a record. Members of other names are passed over, the last of several of
/// one name counts, and numbers stay as they are, also outside 0…1. One thing wrong fails the
/// whole; the error says where: `entry 3, "colors" 2, "color", "red": expected a number`.
/// A `text` with 64 bytes of spare capacity is read without a copy.
template <typename Record> [[nodiscard]] platform::Result<Record> decodeJson(std::string text);

} // namespace tintwell
