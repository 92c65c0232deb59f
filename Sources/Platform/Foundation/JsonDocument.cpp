#include "JsonDocument.h"

#include "Text.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <system_error>
#include <utility>

namespace platform {

namespace {

using simdjson::error_code;
using simdjson::ondemand::json_type;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// A well-formed number that simdjson refuses: infinity for one beyond the range, or one with an
/// exponent of very many digits.
std::optional<double> unusualNumber(std::string_view text)
{
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    std::string_view digits(text.data(), static_cast<std::size_t>(result.ptr - text.data()));
    if (text.find_first_not_of(" \t\r\n", digits.size()) != std::string_view::npos)
        return std::nullopt;
    // What the conversion accepts and JSON does not: zeros in front, a point without digits.
    if (digits.starts_with('-'))
        digits.remove_prefix(1);
    const auto point = digits.find('.');
    const auto startsWithDigit
        = [](std::string_view rest) { return !rest.empty() && rest[0] >= '0' && rest[0] <= '9'; };
    if (!startsWithDigit(digits) || (digits[0] == '0' && startsWithDigit(digits.substr(1)))
        || (point != std::string_view::npos && !startsWithDigit(digits.substr(point + 1))))
        return std::nullopt;
    if (result.ec == std::errc {})
        return number;
    static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
    return ::strtod_l(std::string(text.data(), result.ptr).c_str(), nullptr, plain);
}

/// Where a string does not end in its line; simdjson only says that there is one.
std::size_t findUnendedString(std::string_view text)
{
    bool inString = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '"')
            inString = !inString;
        else if (inString && text[at] == '\\')
            ++at;
        else if (inString && static_cast<unsigned char>(text[at]) < ' ')
            return at;
    }
    return text.size();
}

error_code skip(simdjson::simdjson_result<simdjson::ondemand::value> result, int levels);

error_code skipArray(simdjson::ondemand::value& value, int levels)
{
    simdjson::ondemand::array array;
    error_code error = value.get_array().get(array);
    if (error != simdjson::SUCCESS)
        return error;
    for (const auto item : array)
        if (error = skip(item, levels); error != simdjson::SUCCESS)
            return error;
    return simdjson::SUCCESS;
}

error_code skipObject(simdjson::ondemand::value& value, int levels)
{
    simdjson::ondemand::object object;
    error_code error = value.get_object().get(object);
    if (error != simdjson::SUCCESS)
        return error;
    for (auto field : object) {
        if (error = field.unescaped_key().error(); error != simdjson::SUCCESS)
            return error;
        if (error = skip(field.value(), levels); error != simdjson::SUCCESS)
            return error;
    }
    return simdjson::SUCCESS;
}

/// Checks everything in a value, at most `levels` deep; simdjson itself only counts brackets.
error_code skip(simdjson::simdjson_result<simdjson::ondemand::value> result, int levels)
{
    simdjson::ondemand::value value;
    json_type type {};
    for (const auto error : { result.get(value), result.type().get(type) })
        if (error != simdjson::SUCCESS)
            return error;
    switch (type) {
    case json_type::array:
        return levels > 0 ? skipArray(value, levels - 1) : simdjson::DEPTH_ERROR;
    case json_type::object:
        return levels > 0 ? skipObject(value, levels - 1) : simdjson::DEPTH_ERROR;
    case json_type::number: {
        const auto error = value.get_double().error();
        const bool isUnusual
            = error == simdjson::NUMBER_ERROR && unusualNumber(value.raw_json_token());
        return isUnusual ? simdjson::SUCCESS : error;
    }
    case json_type::string:
        return value.get_string().error();
    case json_type::boolean:
        return value.get_bool().error();
    case json_type::null:
        return value.is_null().error();
    }
    return simdjson::TAPE_ERROR;
}

} // namespace

JsonDocument::JsonDocument(std::string text)
    : text_(std::move(text))
{
    text_.reserve(text_.size() + simdjson::SIMDJSON_PADDING);
    const auto start = text_.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    const simdjson::padded_string_view json(
        text_.data() + start, text_.size() - start, text_.capacity() - start);
    const auto error = parser_.iterate(json).get(document_);
    value_ = error;
    if (error == simdjson::SUCCESS)
        value_ = document_.get_value();
}

bool JsonDocument::readNumber(double& number)
{
    // simdjson 3.0.1 gives some numbers of more than 19 digits a value of another magnitude.
    constexpr std::size_t mostDigits = 19;
    const auto error = value_.get_double().get(number);
    const bool isLong
        = error == simdjson::SUCCESS && value_.raw_json_token().value_unsafe().size() > mostDigits;
    return error == simdjson::NUMBER_ERROR || isLong ? readUnusualNumber(number)
                                                     : succeeded(error, "a number");
}

bool JsonDocument::readString(std::string& text)
{
    std::string_view read;
    if (!succeeded(value_.get_string().get(read), "a string"))
        return false;
    text.assign(read);
    return true;
}

bool JsonDocument::readBoolean(bool& value)
{
    return succeeded(value_.get_bool().get(value), "true or false");
}

bool JsonDocument::readNull()
{
    bool isNull = false;
    return value_.is_null().get(isNull) == simdjson::SUCCESS && isNull;
}

bool JsonDocument::skipValue()
{
    constexpr int mostLevels = 512;
    return succeeded(skip(value_, mostLevels), "a value");
}

bool JsonDocument::readEnd()
{
    const auto at = offset();
    return at == text_.size() || failInLine("the end of the text", at);
}

bool JsonDocument::failExpecting(std::string_view what)
{
    return place_.fail("expected " + std::string(what));
}

bool JsonDocument::succeeded(error_code error, std::string_view what)
{
    switch (static_cast<int>(error)) {
    case simdjson::SUCCESS:
        return true;
    case simdjson::INCORRECT_TYPE:
    case simdjson::SCALAR_DOCUMENT_AS_VALUE:
        return failExpecting(what);
    case simdjson::DEPTH_ERROR:
        return fail("is nested too deeply");
    case simdjson::STRING_ERROR:
        return failInLine(R"(a valid "\" escape)", offset());
    case simdjson::UTF8_ERROR:
        return failInLine("UTF-8 text", findInvalidUtf8(text_).value_or(0));
    case simdjson::UNCLOSED_STRING:
    case simdjson::UNESCAPED_CHARS:
        return failInLine("a quote at the end of the string", findUnendedString(text_));
    case simdjson::EMPTY:
        return failInLine(what, text_.size());
    case simdjson::CAPACITY:
    case simdjson::MEMALLOC:
        return fail("there is not enough memory");
    default:
        return failInLine("valid JSON", offset());
    }
}

/// simdjson reports the same for what is no number, a malformed one and one that is too large.
bool JsonDocument::readUnusualNumber(double& number)
{
    const auto type = value_.type();
    if (type.error() != simdjson::SUCCESS || type.value_unsafe() != json_type::number)
        return failExpecting("a number");
    const auto unusual = unusualNumber(value_.raw_json_token());
    if (!unusual)
        return failInLine("valid JSON", offset());
    number = *unusual;
    return std::isfinite(number) || failExpecting("a number of at most 1.8e308");
}

bool JsonDocument::failInLine(std::string_view what, std::size_t at)
{
    const auto line
        = 1 + std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(at), '\n');
    return failExpecting(std::string(what) + " in line " + std::to_string(line)
        + (at == text_.size() ? ", where the text ends" : ""));
}

std::size_t JsonDocument::offset()
{
    const auto location = document_.current_location();
    return location.error() == simdjson::SUCCESS
        ? static_cast<std::size_t>(location.value_unsafe() - text_.data())
        : text_.size();
}

} // namespace platform
