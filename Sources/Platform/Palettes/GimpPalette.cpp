#include "GimpPalette.h"

#include "Text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <sstream>

namespace platform {

namespace {

/// One character in the ASCII that Unicode's compatibility forms lead to: marks fall off, dashes,
/// quotes and spaces become their plain ones, what is left is "?".
std::string plainCharacter(std::int32_t codePoint)
{
    constexpr auto options = static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT
        | UTF8PROC_STRIPMARK | UTF8PROC_LUMP | UTF8PROC_IGNORE);
    constexpr std::size_t longestDecomposition = 32;
    std::array<std::int32_t, longestDecomposition> parts {};
    int boundaryClass = 0;
    const auto count = utf8proc_decompose_char(codePoint, parts.data(),
        static_cast<utf8proc_ssize_t>(parts.size()), options, &boundaryClass);
    if (count < 0 || count > static_cast<utf8proc_ssize_t>(parts.size()))
        return "?";
    std::string plain;
    for (const auto part : std::span(parts).first(static_cast<std::size_t>(count)))
        plain += part < ' ' || part == 0x7F ? ' ' : part < 0x80 ? static_cast<char>(part) : '?';
    return plain;
}

std::string nameLine(const std::string& name)
{
    std::string plain = plainAscii(name);
    const auto first = plain.find_first_not_of(' ');
    if (first == std::string::npos)
        return "Untitled";
    return plain.substr(first, plain.find_last_not_of(' ') - first + 1);
}

bool isNumber(const std::string& word)
{
    return word.find_first_not_of("0123456789") == std::string::npos;
}

} // namespace

std::vector<std::string> gimpPaletteEntries(const std::string& text)
{
    std::vector<std::string> entries;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::vector<std::string> parts;
        for (std::string word; words >> word;)
            parts.push_back(word);
        if (parts.size() < 3 || !std::all_of(parts.begin(), parts.begin() + 3, isNumber))
            continue;
        std::string entry;
        for (const auto& part : parts)
            entry += (entry.empty() ? "" : " ") + part;
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::string plainAscii(std::string_view text)
{
    std::string out;
    while (!text.empty())
        out += plainCharacter(takeCharacter(text).codePoint);
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
