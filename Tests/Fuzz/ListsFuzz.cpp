// Any bytes as a color list and as the palette of a drawing program: what is read comes back from
// its written form, and what is not ours stays.
#include "AtomicFile.h"
#include "PalettePublisher.h"

#include <cstdlib>
#include <fstream>

using namespace platform;

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

std::filesystem::path makeHome()
{
    std::string home = "/dev/shm/tintwell-fuzz-XXXXXX";
    require(::mkdtemp(home.data()) != nullptr);
    std::filesystem::create_directories(std::filesystem::path(home) / "krita/palettes");
    return home;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const auto home = makeHome();
    static const PalettePublisher publisher({ {}, home, {} });
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const ColorListRegistry lists(home);
    std::ofstream(home / "T.clr", std::ios::binary) << bytes;
    const auto read = lists.availableColorLists();
    if (!read.empty()) {
        require(lists.write(read[0]).hasValue());
        require(lists.availableColorLists().at(0).colors() == read[0].colors());
    }
    const auto file = home / "krita/palettes/T.gpl";
    std::ofstream(file, std::ios::binary) << bytes;
    const auto published = publisher.publish(read.empty() ? ColorList("T") : read[0]);
    require(published.hasValue());
    const auto now = readWholeFile(file, 1'000'000);
    require(published.value().copies.empty() ? now.value() == bytes : now.value() != "");
    return 0;
}
