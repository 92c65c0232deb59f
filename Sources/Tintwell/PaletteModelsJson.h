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
/// was, when a colour component is not finite or a text is not UTF-8. `Record` is one of those
/// below.
template <typename Record>
[[nodiscard]] platform::Result<void> appendJson(
    std::string& out, const Record& record, JsonStyle style);

/// Reads the JSON form of a record. Members of other names are passed over, the last of several of
/// one name counts, and numbers stay as they are, also outside 0…1. One thing wrong fails the
/// whole; the error says where: `entry 3, "colors" 2, "color", "red": expected a number`.
template <typename Record> [[nodiscard]] platform::Result<Record> decodeJson(std::string_view text);

// clang-format off
#define TINTWELL_JSON_RECORD(Record)                                                            \
    extern template platform::Result<void> appendJson(std::string&, const Record&, JsonStyle);  \
    extern template platform::Result<Record> decodeJson(std::string_view);
// clang-format on
TINTWELL_JSON_RECORD(RGBAColor)
TINTWELL_JSON_RECORD(NamedColor)
TINTWELL_JSON_RECORD(PaletteSection)
TINTWELL_JSON_RECORD(ThemePalette)
TINTWELL_JSON_RECORD(GeneratedPalette)
TINTWELL_JSON_RECORD(SavedPalette)
TINTWELL_JSON_RECORD(std::vector<NamedColor>)
TINTWELL_JSON_RECORD(std::vector<SavedPalette>)
#undef TINTWELL_JSON_RECORD

} // namespace tintwell
