#include "Report.h"

#include "ColorText.h"
#include "Terminal.h"

namespace tintwell {

std::string notAColor(std::string_view text)
{
    return inQuotes(text) + " is not a color; write " + colorForms;
}

platform::Result<RGBAColor> readColor(std::string_view text)
{
    if (const auto color = colorFromText(text))
        return *color;
    return platform::Error { notAColor(text) };
}

} // namespace tintwell
