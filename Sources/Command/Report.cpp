#include "Report.h"

#include "Terminal.h"

namespace tintwell {

std::string notAColor(std::string_view text)
{
    return inQuotes(text)
        + " is not a color; write RRGGBB or RRGGBBAA in hexadecimal digits, such as #6E56CF";
}

platform::Result<RGBAColor> readColor(std::string_view text)
{
    if (const auto color = RGBAColor::fromHex(text))
        return *color;
    return platform::Error { notAColor(text) };
}

} // namespace tintwell
