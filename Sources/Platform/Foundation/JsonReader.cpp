#include "JsonReader.h"

#include "Text.h"

#include <algorithm>
#include <bitset>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace platform {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isSpace(char c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool endsPlainText(char c)
{
    return c == '"' || c == '\\' || static_cast<unsigned char>(c) < ' ';
}

/// The value of four hexadecimal digits at the start of `text`.
std::optional<std::uint32_t> fourHexDigits(std::string_view text)
{
    if (text.size() < 4)
        return std::nullopt;
    std::uint32_t value = 0;
    const char* const end = text.data() + 4;
    const auto result = std::from_chars(text.data(), end, value, 16);
    return result.ptr == end ? std::optional(value) : std::nullopt;
}

bool isHighSurrogate(std::uint32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(std::uint32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

/// Takes the code point of a "uXXXX" (or a pair of them) from the start of `text`, which follows a
/// backslash.
std::optional<std::uint32_t> takeCodePoint(std::string_view& text)
{
    const auto first = fourHexDigits(text.substr(1));
    if (!first || isLowSurrogate(*first))
        return std::nullopt;
    text.remove_prefix(5);
    if (!isHighSurrogate(*first))
        return first;
    if (!text.starts_with("\\u"))
        return std::nullopt;
    const auto second = fourHexDigits(text.substr(2));
    if (!second || !isLowSurrogate(*second))
        return std::nullopt;
    text.remove_prefix(6);
    return 0x10000 + ((*first - 0xD800) << 10U) + (*second - 0xDC00);
}

void appendUtf8(std::string& text, std::uint32_t codePoint)
{
    const auto append = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    const auto continuation
        = [&](unsigned shift) { append(0x80U | ((codePoint >> shift) & 0x3FU)); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0U | (codePoint >> 6U));
        continuation(0);
    } else if (codePoint < 0x10000) {
        append(0xE0U | (codePoint >> 12U));
        continuation(6);
        continuation(0);
    } else {
        append(0xF0U | (codePoint >> 18U));
        continuation(12);
        continuation(6);
        continuation(0);
    }
}

/// The character that a backslash and `letter` stand for, or '\0'.
char simpleEscape(char letter)
{
    constexpr std::string_view letters = "\"\\/bfnrt";
    constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
    const auto index = letters.find(letter);
    return index != std::string_view::npos ? meanings[index] : '\0';
}

/// What the C library makes of digits that the fast conversion calls out of range: infinity or
/// (next to) zero.
double extremeNumber(std::string_view digits)
{
    static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
    return ::strtod_l(std::string(digits).c_str(), nullptr, plain);
}

} // namespace

JsonReader::JsonReader(std::string_view text)
    : begin_(text.data())
    , at_(text.data())
    , end_(text.data() + text.size())
{
    if (const auto broken = findInvalidUtf8(text)) {
        at_ += *broken;
        failHere("UTF-8 text");
        end_ = at_;
        return;
    }
    if (text.starts_with(byteOrderMark))
        at_ += byteOrderMark.size();
}

bool JsonReader::readNumber(double& number)
{
    skipSpace();
    if (peek() != '-' && !isDigit(peek()))
        return failKind("a number");
    std::string_view digits;
    if (!scanNumber(digits))
        return false;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec == std::errc::result_out_of_range)
        number = extremeNumber(digits);
    return std::isfinite(number) || failExpecting("a number of at most 1.8e308");
}

bool JsonReader::readString(std::string& text)
{
    skipSpace();
    if (peek() != '"')
        return failKind("a string");
    std::string_view raw;
    bool escaped = false;
    if (!scanString(raw, escaped))
        return false;
    if (escaped)
        return unescape(raw, &text);
    text.assign(raw);
    return true;
}

bool JsonReader::readBoolean(bool& value)
{
    skipSpace();
    value = peek() == 't';
    if (peek() != 't' && peek() != 'f')
        return failKind("true or false");
    return scanWord(value ? "true" : "false");
}

bool JsonReader::readNull()
{
    skipSpace();
    return peek() == 'n' && scanWord("null");
}

/// The arrays and objects around the place that skipping has reached.
struct JsonReader::OpenBrackets {
    static constexpr std::size_t maxDepth = 512;
    std::bitset<maxDepth> isObject;
    std::size_t depth = 0;
    bool innermostIsEmpty = false;
};

bool JsonReader::skipValue()
{
    OpenBrackets open;
    do {
        if (!skipScalarOrBracket(open) || !skipToNextItem(open))
            return false;
    } while (open.depth > 0);
    return true;
}

bool JsonReader::skipScalarOrBracket(OpenBrackets& open)
{
    skipSpace();
    open.innermostIsEmpty = peek() == '{' || peek() == '[';
    if (!open.innermostIsEmpty)
        return skipScalar();
    if (open.depth == OpenBrackets::maxDepth)
        return fail("is nested too deeply");
    open.isObject[open.depth++] = *at_++ == '{';
    return true;
}

/// Closes what ends here, up to the next element or the value of the next member.
bool JsonReader::skipToNextItem(OpenBrackets& open)
{
    for (; open.depth > 0; --open.depth, open.innermostIsEmpty = false) {
        const bool inObject = open.isObject[open.depth - 1];
        const auto next = step(inObject ? '}' : ']', open.innermostIsEmpty);
        Name name;
        if (next == Step::item)
            return !inObject || readName(name);
        if (next == Step::failure)
            return false;
    }
    return true;
}

bool JsonReader::readEnd()
{
    skipSpace();
    return at_ == end_ || failHere("the end of the text");
}

bool JsonReader::failExpecting(std::string_view what)
{
    return place_.fail("expected " + std::string(what));
}

bool JsonReader::failKind(std::string_view what)
{
    return at_ == end_ ? failHere(what) : failExpecting(what);
}

bool JsonReader::failHere(std::string_view expected)
{
    const auto line = 1 + std::count(begin_, at_, '\n');
    return place_.fail("expected " + std::string(expected) + " in line " + std::to_string(line)
        + (at_ == end_ ? ", where the text ends" : ""));
}

bool JsonReader::open(char bracket, std::string_view what)
{
    skipSpace();
    if (peek() != bracket)
        return failKind(what);
    ++at_;
    return true;
}

/// Goes to the next item of an array or object, or past its end.
JsonReader::Step JsonReader::step(char close, bool first)
{
    skipSpace();
    if (at_ < end_ && *at_ == close) {
        ++at_;
        return Step::close;
    }
    if (first)
        return Step::item;
    if (peek() != ',') {
        failHere(close == ']' ? R"("," or "]")" : R"("," or "}")");
        return Step::failure;
    }
    ++at_;
    return Step::item;
}

bool JsonReader::readName(Name& name)
{
    skipSpace();
    if (peek() != '"')
        return failHere("the name of a member in quotes");
    if (!scanString(name.raw_, name.escaped_)
        || (name.escaped_ && !unescape(name.raw_, &name.unescaped_)))
        return false;
    skipSpace();
    if (peek() != ':')
        return failHere(R"(":" after the name of a member)");
    ++at_;
    return true;
}

/// Finds the text between two quotes.
bool JsonReader::scanString(std::string_view& raw, bool& escaped)
{
    const char* const start = ++at_;
    for (;;) {
        at_ = std::find_if(at_, end_, endsPlainText);
        if (at_ == end_ || static_cast<unsigned char>(*at_) < ' ')
            return failHere("a quote at the end of the string");
        if (*at_ == '"')
            break;
        escaped = true;
        at_ += end_ - at_ > 1 ? 2 : 1;
    }
    raw = { start, static_cast<std::size_t>(at_ - start) };
    ++at_;
    return true;
}

/// Resolves the escapes of `raw`; only checks them when there is no `text` to write to.
bool JsonReader::unescape(std::string_view raw, std::string* text)
{
    if (text != nullptr)
        text->clear();
    while (!raw.empty()) {
        const auto plain = std::min(raw.find('\\'), raw.size());
        if (text != nullptr)
            text->append(raw.substr(0, plain));
        raw.remove_prefix(plain);
        if (raw.empty())
            break;
        raw.remove_prefix(1);
        std::optional<std::uint32_t> codePoint;
        if (raw.starts_with('u')) {
            codePoint = takeCodePoint(raw);
        } else if (const char meaning = simpleEscape(raw.front()); meaning != '\0') {
            codePoint = static_cast<unsigned char>(meaning);
            raw.remove_prefix(1);
        }
        if (!codePoint)
            return failHere(R"(a valid "\" escape)");
        if (text != nullptr)
            appendUtf8(*text, *codePoint);
    }
    return true;
}

/// Finds the text of a number, which is stricter than what the conversion would accept.
bool JsonReader::scanNumber(std::string_view& digits)
{
    const char* const start = at_;
    if (peek() == '-')
        ++at_;
    if (!isDigit(peek()))
        return failHere("a digit");
    if (peek() == '0')
        ++at_;
    else
        skipDigits();
    if (peek() == '.') {
        ++at_;
        if (!isDigit(peek()))
            return failHere("a digit");
        skipDigits();
    }
    if (peek() == 'e' || peek() == 'E') {
        ++at_;
        if (peek() == '+' || peek() == '-')
            ++at_;
        if (!isDigit(peek()))
            return failHere("a digit");
        skipDigits();
    }
    digits = { start, static_cast<std::size_t>(at_ - start) };
    return true;
}

void JsonReader::skipDigits()
{
    while (at_ < end_ && isDigit(*at_))
        ++at_;
}

bool JsonReader::scanWord(std::string_view word)
{
    const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
    if (!rest.starts_with(word))
        return failHere(std::string(word) + " without quotes");
    at_ += word.size();
    return true;
}

bool JsonReader::skipScalar()
{
    switch (peek()) {
    case '"': {
        std::string_view raw;
        bool escaped = false;
        return scanString(raw, escaped) && (!escaped || unescape(raw, nullptr));
    }
    case 't':
        return scanWord("true");
    case 'f':
        return scanWord("false");
    case 'n':
        return scanWord("null");
    default:
        std::string_view digits;
        return peek() == '-' || isDigit(peek()) ? scanNumber(digits) : failHere("a value");
    }
}

void JsonReader::skipSpace()
{
    constexpr std::uint64_t eightSpaces = 0x2020202020202020U;
    while (at_ < end_ && isSpace(*at_)) {
        ++at_;
        std::uint64_t word = eightSpaces;
        while (word == eightSpaces && end_ - at_ >= 8) {
            std::memcpy(&word, at_, sizeof(word));
            at_ += word == eightSpaces ? 8 : 0;
        }
    }
}

} // namespace platform
