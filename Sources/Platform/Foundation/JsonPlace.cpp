#include "JsonPlace.h"

#include <utility>

namespace platform {

namespace {

/// A member name that can stand in a sentence, whatever the file holds: no control characters, and
/// only the start of a long one.
std::string readable(std::string_view name)
{
    constexpr std::size_t longest = 40;
    std::string text;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        const bool startsCharacter = (byte & 0xC0U) != 0x80U;
        if (text.size() >= longest && startsCharacter)
            return text + "…";
        text += byte < ' ' || byte == 0x7F ? ' ' : c;
    }
    return text;
}

} // namespace

bool JsonPlace::fail(std::string problem)
{
    if (problem_.empty())
        problem_ = std::move(problem);
    return false;
}

bool JsonPlace::inMember(std::string_view name)
{
    place_ = std::string(", \"") + readable(name) + '"' + place_;
    return false;
}

bool JsonPlace::inElement(std::size_t number)
{
    std::string place(1, ' ');
    place += std::to_string(number);
    place_.insert(0, place);
    return false;
}

std::string JsonPlace::sentence() const
{
    if (place_.empty())
        return problem_;
    const bool isEntry = place_.starts_with(' ');
    const std::string place = isEntry ? std::string("entry") + place_ : place_.substr(2);
    return place + ": " + problem_;
}

} // namespace platform
