// Any text as a date and as a UUID: what is accepted comes back from its written form.
#include "Iso8601.h"
#include "Uuid.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace platform;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto time = parseIso8601(text)) {
        const std::string written = formatIso8601(*time);
        require(parseIso8601(written) == time && written.size() == 20);
        require(!text.ends_with('Z') || written == text);
    }
    if (const auto uuid = Uuid::fromText(text))
        require(Uuid::fromText(uuid->text()) == uuid && text.size() == 36);
    return 0;
}
