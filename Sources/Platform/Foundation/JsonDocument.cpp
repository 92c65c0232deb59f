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

/// Whether a number that the conversion accepts is one in JSON, too: it has digits on either side
/// of its point, and no more zeros than one in front.
bool isJsonNumber(std::string_view text)
{
    if (text.starts_with('-'))
        text.remove_prefix(1);
    const auto isDigit
        = [text](std::size_t at) { return at < text.size() && text[at] >= '0' && text[at] <= '9'; };
    std::size_t end = 0;
    while (isDigit(end))
        ++end;
    return end > 0 && (end == 1 || text[0] != '0')
        && (end == text.size() || text[end] != '.' || isDigit(end + 1));
}

/// The number in a token, which ends where the next one begins; infinity for one that is too large.
/// simdjson 3.0.1 itself misreads some of many digits.
std::optional<double> numberIn(std::string_view token)
{
    double number = 0;
    const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), number);
    const auto size = static_cast<std::size_t>(end - token.data());
    if (!isJsonNumber(token.substr(0, size))
        || token.find_first_not_of(" \t\r\n", size) != std::string_view::npos)
        return std::nullopt;
    if (error == std::errc {})
        return number;
    static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
    return ::strtod_l(std::string(token, 0, size).c_str(), nullptr, plain);
}

/// Whether a token is a string that says what stands in it, which saves a copy.
bool isPlainString(std::string_view token)
{
    return token.starts_with('"') && token.find('\\') == std::string_view::npos;
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
    case json_type::number:
        return numberIn(value.raw_json_token()) ? simdjson::SUCCESS : simdjson::NUMBER_ERROR;
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
    outermost_ = error;
    if (error == simdjson::SUCCESS)
        outermost_ = document_.get_value();
}

bool JsonDocument::readNumber(double& number)
{
    json_type type {};
    if (value_->type().get(type) != simdjson::SUCCESS || type != json_type::number)
        return failExpecting("a number");
    const auto read = numberIn(value_->raw_json_token());
    if (!read)
        return failInLine("valid JSON", offset());
    number = *read;
    return std::isfinite(number) || failExpecting("a number of at most 1.8e308");
}

bool JsonDocument::readString(std::string& text)
{
    std::string_view read;
    if (value_->raw_json_token().get(read) == simdjson::SUCCESS && isPlainString(read))
        read = read.substr(1, read.rfind('"') - 1);
    else if (!succeeded(value_->get_string().get(read), "a string"))
        return false;
    text.assign(read);
    return true;
}

bool JsonDocument::readBoolean(bool& value)
{
    return succeeded(value_->get_bool().get(value), "true or false");
}

bool JsonDocument::readNull()
{
    bool isNull = false;
    return value_->is_null().get(isNull) == simdjson::SUCCESS && isNull;
}

bool JsonDocument::skipValue()
{
    constexpr int mostLevels = 512;
    return succeeded(skip(*value_, mostLevels), "a value");
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
