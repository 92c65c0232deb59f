// Any text as JSON: our reader and another one accept the same.
#include "JsonReader.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

enum class Verdict { accepted, refused, matterOfTaste };

Verdict ours(std::string_view text)
{
    platform::JsonReader json(text);
    if (json.skipValue() && json.readEnd())
        return Verdict::accepted;
    const bool tooDeep = json.problem().find("too deeply") != std::string::npos;
    return tooDeep ? Verdict::matterOfTaste : Verdict::refused;
}

/// The other reader has a limit for the size of numbers, and ends at a zero byte.
Verdict theirs(std::string_view text)
{
    constexpr int numberTooLarge = 406;
    if (text.find('\0') != std::string_view::npos)
        return Verdict::matterOfTaste;
    try {
        return nlohmann::json::parse(text).is_discarded() ? Verdict::refused : Verdict::accepted;
    } catch (const nlohmann::json::exception& error) {
        return error.id == numberTooLarge ? Verdict::matterOfTaste : Verdict::refused;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto first = ours(text);
    const auto second = theirs(text);
    if (first != Verdict::matterOfTaste && second != Verdict::matterOfTaste && first != second)
        std::abort();
    return 0;
}
