// Any text as JSON: our way of reading and another library accept the same and see the same values.
#include "JsonDocument.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

using nlohmann::json;
using platform::JsonDocument;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// What the other library reads: "discarded" when it refuses, nothing where it differs by design,
/// which is by numbers beyond the range, members of the same name, and a zero byte as the end.
std::optional<json> yardstick(const std::string& text)
{
    constexpr int numberTooLarge = 406;
    bool hasTwins = false;
    std::vector<std::set<std::string>> names(1);
    const auto watch = [&](int depth, json::parse_event_t event, json& parsed) {
        const auto level = static_cast<std::size_t>(depth);
        if (event == json::parse_event_t::object_start) {
            names.resize(level + 2);
            names[level + 1].clear();
        } else if (event == json::parse_event_t::key) {
            hasTwins = !names[level].insert(parsed.get<std::string>()).second || hasTwins;
        }
        return true;
    };
    if (text.find('\0') != std::string::npos)
        return std::nullopt;
    try {
        const auto value = json::parse(text, watch);
        return hasTwins ? std::nullopt : std::optional(value);
    } catch (const json::exception& error) {
        return error.id == numberTooLarge ? std::nullopt
                                          : std::optional(json(json::value_t::discarded));
    }
}

/// Reads a value and compares it with `expected`.
bool readSame(JsonDocument& document, const json& expected)
{
    if (expected.is_array()) {
        std::size_t count = 0;
        return document.readArray([&] { return readSame(document, expected.at(count++)); })
            && count == expected.size();
    }
    if (expected.is_object()) {
        std::size_t count = 0;
        return document.readObject([&](std::string_view name) {
            ++count;
            return readSame(document, expected.at(std::string(name)));
        }) && count == expected.size();
    }
    if (expected.is_string()) {
        std::string text;
        return document.readString(text) && text == expected.get<std::string>();
    }
    double number = 0;
    if (expected.is_number())
        return document.readNumber(number) && number == expected.get<double>();
    bool value = false;
    if (expected.is_boolean())
        return document.readBoolean(value) && value == expected.get<bool>();
    return document.readNull();
}

void check(const std::string& text)
{
    const auto expected = yardstick(text);
    if (!expected || (expected->is_primitive() && !expected->is_discarded()))
        return;
    JsonDocument skipped(text);
    const bool accepted = skipped.skipValue() && skipped.readEnd();
    if (skipped.problem().find("too deeply") != std::string::npos)
        return;
    require(accepted != expected->is_discarded());
    if (accepted) {
        JsonDocument document(text);
        require(readSame(document, *expected) && document.readEnd());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    check(text);
    check('[' + text + ']');
    return 0;
}
