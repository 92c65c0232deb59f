// Any text as a library file: what is read comes back from its written form, and what is refused
// is refused in one line.
#include "PaletteModelsJson.h"
#include "Text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace tintwell;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

template <typename Record> void check(std::string_view text)
{
    const auto record = decodeJson<Record>(std::string(text));
    if (!record) {
        const auto& error = record.error().description;
        require(!error.empty() && error.size() < 2000 && error.find('\n') == std::string::npos
            && !platform::findInvalidUtf8(error));
        return;
    }
    for (const auto style : { JsonStyle::compact, JsonStyle::pretty }) {
        std::string written;
        require(appendJson(written, record.value(), style).hasValue());
        const auto again = decodeJson<Record>(written);
        require(again && again.value() == record.value());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    check<std::vector<SavedPalette>>(text);
    check<GeneratedPalette>(text);
    return 0;
}
