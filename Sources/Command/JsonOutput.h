// A record as a JSON document that can go to standard output as it is.
#pragma once

#include "PaletteModelsJson.h"
#include "Terminal.h"

#include <string>

namespace tintwell {

/// The JSON form of `record` and a line feed, without anything that steers a terminal.
template <typename Record>
[[nodiscard]] platform::Result<std::string> jsonDocument(const Record& record, JsonStyle style)
{
    std::string text;
    if (const auto written = appendJson(text, record, style); !written)
        return written.error();
    return withEscapedControls(text) + "\n";
}

} // namespace tintwell
