#include "GimpPalette.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace platform {

namespace {

using CodePoint = utf8proc_int32_t;

constexpr CodePoint firstAfterAscii = 0x80;

struct Substitute {
    CodePoint first;
    CodePoint last;
    const char* text;
};

/// What Unicode's own decomposition does not reach.
constexpr std::array substitutes {
    Substitute { 0x00AD, 0x00AD, "" }, // soft hyphen
    Substitute { 0x00B7, 0x00B7, "-" }, // middle dot
    Substitute { 0x00C6, 0x00C6, "AE" }, Substitute { 0x00D7, 0x00D7, "x" },
    Substitute { 0x00D8, 0x00D8, "O" }, Substitute { 0x00DF, 0x00DF, "ss" },
    Substitute { 0x00E6, 0x00E6, "ae" }, Substitute { 0x00F8, 0x00F8, "o" },
    Substitute { 0x0131, 0x0131, "i" }, // dotless i
    Substitute { 0x0141, 0x0141, "L" }, Substitute { 0x0142, 0x0142, "l" },
    Substitute { 0x0152, 0x0152, "OE" }, Substitute { 0x0153, 0x0153, "oe" },
    Substitute { 0x2010, 0x2015, "-" }, // hyphens and dashes
    Substitute { 0x2018, 0x201B, "'" }, Substitute { 0x201C, 0x201F, "\"" },
    Substitute { 0x2022, 0x2022, "-" }, // bullet
    Substitute { 0x2039, 0x2039, "<" }, Substitute { 0x203A, 0x203A, ">" },
    Substitute { 0x2044, 0x2044, "/" }, // fraction slash
    Substitute { 0x2212, 0x2212, "-" }, // minus
};

bool isSpaceOrControl(CodePoint point)
{
    const auto category = utf8proc_category(point);
    return category == UTF8PROC_CATEGORY_CC || category == UTF8PROC_CATEGORY_ZS
        || category == UTF8PROC_CATEGORY_ZL || category == UTF8PROC_CATEGORY_ZP;
}

bool isMark(CodePoint point)
{
    const auto category = utf8proc_category(point);
    return category == UTF8PROC_CATEGORY_MN || category == UTF8PROC_CATEGORY_MC
        || category == UTF8PROC_CATEGORY_ME || category == UTF8PROC_CATEGORY_CF;
}

/// The form of a character that does not decompose any further.
std::string_view plainAtom(CodePoint point, std::array<char, 1>& room)
{
    if (isSpaceOrControl(point))
        return " ";
    if (point < firstAfterAscii) {
        room.front() = static_cast<char>(point);
        return { room.data(), room.size() };
    }
    const auto* const found = std::find_if(substitutes.begin(), substitutes.end(),
        [&](const auto& entry) { return entry.first <= point && point <= entry.last; });
    if (found != substitutes.end())
        return found->text;
    return isMark(point) ? "" : "?";
}

void appendPlain(CodePoint point, std::string& out)
{
    constexpr std::size_t longestDecomposition = 32;
    std::array<CodePoint, longestDecomposition> parts {};
    int boundaryClass = 0;
    const auto count
        = utf8proc_decompose_char(point, parts.data(), static_cast<utf8proc_ssize_t>(parts.size()),
            static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT), &boundaryClass);
    std::array<char, 1> room {};
    if (count <= 0 || static_cast<std::size_t>(count) > parts.size()) {
        out += '?';
        return;
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        out += plainAtom(parts.at(i), room);
}

std::string nameLine(const std::string& name)
{
    std::string plain = plainAscii(name);
    const auto first = plain.find_first_not_of(' ');
    if (first == std::string::npos)
        return "Untitled";
    return plain.substr(first, plain.find_last_not_of(' ') - first + 1);
}

} // namespace

std::string plainAscii(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        CodePoint point = -1;
        const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
            static_cast<utf8proc_ssize_t>(text.size()), &point);
        if (length > 0)
            appendPlain(point, out);
        else
            out += '?';
        text.remove_prefix(length > 0 ? static_cast<std::size_t>(length) : 1);
    }
    return out;
}

std::string gimpPaletteText(const ColorList& list, std::string_view comment)
{
    // The fixed comment also lifts the shortest list over the 50 bytes below which one reader
    // refuses a file.
    std::string text = "GIMP Palette\nName: " + nameLine(list.name())
        + "\n# Colors are sRGB; alpha is left out.\n";
    if (!comment.empty())
        text.append("# ").append(comment).append("\n");
    for (const auto& [key, color] : list.colors()) {
        const auto converted = inSRGB(color);
        if (!converted)
            continue;
        for (const double component : { converted->red, converted->green, converted->blue })
            text += std::to_string(toByte(component)) + ' ';
        text.back() = '\t';
        text += nameLine(key) + '\n';
    }
    return text;
}

} // namespace platform
