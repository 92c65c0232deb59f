#include "Uuid.h"

#include <uuid/uuid.h>

namespace platform {

Uuid Uuid::random()
{
    Uuid uuid;
    uuid_generate_random(uuid.bytes.data());
    return uuid;
}

std::optional<Uuid> Uuid::fromText(std::string_view text)
{
    Uuid uuid;
    if (text.size() != UUID_STR_LEN - 1
        || uuid_parse_range(text.data(), text.data() + text.size(), uuid.bytes.data()) != 0)
        return std::nullopt;
    return uuid;
}

std::string Uuid::text() const
{
    std::array<char, UUID_STR_LEN> buffer {};
    uuid_unparse_upper(bytes.data(), buffer.data());
    return buffer.data();
}

} // namespace platform
