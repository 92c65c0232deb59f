#include "JsonWriter.h"

#include <simdjson.h>

#include <array>
#include <charconv>
#include <cmath>

namespace platform {

namespace {

/// What stands for a byte inside quotes after a backslash: a letter, 'u' for "u00XX", or '\0' when
/// the byte stands for itself.
constexpr std::array<char, 256> escapes = [] {
    std::array<char, 256> table {};
    for (std::size_t control = 0; control < ' '; ++control)
        table[control] = 'u';
    table['\b'] = 'b';
    table['\f'] = 'f';
    table['\n'] = 'n';
    table['\r'] = 'r';
    table['\t'] = 't';
    table['"'] = '"';
    table['\\'] = '\\';
    table['/'] = '/';
    return table;
}();

} // namespace

void JsonWriter::member(std::string_view plainName)
{
    element();
    out_ += '"';
    out_ += plainName;
    out_ += style_ == JsonStyle::pretty ? "\": " : "\":";
}

bool JsonWriter::string(std::string_view text)
{
    if (!simdjson::validate_utf8(text))
        return place_.fail("is not UTF-8 text");
    constexpr std::string_view hexDigits = "0123456789abcdef";
    out_ += '"';
    std::size_t written = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        const char escape = escapes[byte];
        if (escape == '\0')
            continue;
        out_ += text.substr(written, at - written);
        written = at + 1;
        out_ += '\\';
        out_ += escape;
        if (escape == 'u') {
            out_ += "00";
            out_ += hexDigits[byte >> 4U];
            out_ += hexDigits[byte & 0xFU];
        }
    }
    out_ += text.substr(written);
    out_ += '"';
    return true;
}

bool JsonWriter::number(double value)
{
    if (!std::isfinite(value))
        return place_.fail("is not a finite number");
    constexpr std::size_t longestDouble = 32;
    std::array<char, longestDouble> digits {};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    out_.append(digits.data(), result.ptr);
    return true;
}

void JsonWriter::begin(char bracket)
{
    out_ += bracket;
    ++depth_;
    empty_ = true;
}

void JsonWriter::end(char bracket)
{
    --depth_;
    if (!empty_)
        startLine();
    out_ += bracket;
    empty_ = false;
}

void JsonWriter::element()
{
    if (!empty_)
        out_ += ',';
    empty_ = false;
    startLine();
}

void JsonWriter::startLine()
{
    constexpr std::size_t indentWidth = 2;
    if (style_ == JsonStyle::compact)
        return;
    out_ += '\n';
    out_.append(depth_ * indentWidth, ' ');
}

} // namespace platform
