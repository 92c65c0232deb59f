// The library file of 1,000 palettes: read and written by the store, and by a common JSON library
// in the same run.
#include "AtomicFile.h"
#include "PaletteGenerator.h"
#include "PaletteModelsJson.h"
#include "PalettePersistence.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <string_view>

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tintwell {
namespace {

using Library = std::vector<SavedPalette>;

Library makeLibrary(unsigned count)
{
    Library library(count);
    std::uint32_t random = 1;
    const auto component = [&random] {
        random = random * 1664525U + 1013904223U;
        return static_cast<double>(random >> 8U) / 16777215.0;
    };
    for (auto& palette : library) {
        palette.source = RGBAColor(component(), component(), component(), 1);
        const auto generated = PaletteGenerator {}.generate(palette.source);
        palette.id = platform::Uuid::random();
        palette.name = generated.sourceName;
        palette.createdAt = *platform::parseIso8601("2026-11-22T10:00:00Z");
        palette.colors = generated.exportColors();
    }
    return library;
}

const Library& library()
{
    static const Library value = makeLibrary(1000);
    return value;
}

const std::string& libraryText()
{
    static const std::string value = [] {
        std::string text;
        if (!appendJson(text, library(), JsonStyle::pretty))
            std::abort();
        return text;
    }();
    return value;
}

std::filesystem::path scratchFile()
{
    return std::filesystem::temp_directory_path()
        / ("tintwell-benchmark-" + std::to_string(::getpid()) + ".json");
}

/// The library file, removed at the end of a benchmark.
class LibraryFile {
public:
    LibraryFile() { std::ofstream(path_, std::ios::binary) << libraryText(); }
    LibraryFile(const LibraryFile&) = delete;
    LibraryFile& operator=(const LibraryFile&) = delete;
    ~LibraryFile()
    {
        std::filesystem::remove(path_);
        std::filesystem::remove(path_.string() + ".lock");
    }

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_ = scratchFile();
};

void countBytes(benchmark::State& state)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * libraryText().size()));
}

} // namespace

// The yardstick fills the same records and checks as much as its conversions do of themselves.
void to_json(nlohmann::json& json, const RGBAColor& color)
{
    json = { { "alpha", color.alpha }, { "blue", color.blue }, { "green", color.green },
        { "red", color.red } };
}

void from_json(const nlohmann::json& json, RGBAColor& color)
{
    json.at("alpha").get_to(color.alpha);
    json.at("blue").get_to(color.blue);
    json.at("green").get_to(color.green);
    json.at("red").get_to(color.red);
}

void to_json(nlohmann::json& json, const NamedColor& color)
{
    json = { { "color", color.color }, { "id", color.id }, { "name", color.name } };
    if (color.detail)
        json["detail"] = *color.detail;
}

void from_json(const nlohmann::json& json, NamedColor& color)
{
    json.at("color").get_to(color.color);
    json.at("id").get_to(color.id);
    json.at("name").get_to(color.name);
    if (const auto detail = json.find("detail"); detail != json.end() && !detail->is_null())
        color.detail = detail->get<std::string>();
}

void to_json(nlohmann::json& json, const SavedPalette& palette)
{
    json = { { "colors", palette.colors },
        { "createdAt", platform::formatIso8601(palette.createdAt) }, { "id", palette.id.text() },
        { "name", palette.name }, { "source", palette.source } };
}

void from_json(const nlohmann::json& json, SavedPalette& palette)
{
    json.at("colors").get_to(palette.colors);
    palette.createdAt = platform::parseIso8601(json.at("createdAt").get<std::string>()).value();
    palette.id = platform::Uuid::fromText(json.at("id").get<std::string>()).value();
    json.at("name").get_to(palette.name);
    json.at("source").get_to(palette.source);
}

namespace {

void loadLibrary(benchmark::State& state)
{
    const LibraryFile file;
    for (auto _ : state) {
        const auto loaded = PalettePersistence(file.path()).load();
        if (!loaded || loaded.value().size() != library().size())
            state.SkipWithError("the library was not read");
    }
    countBytes(state);
}
BENCHMARK(loadLibrary)->Unit(benchmark::kMillisecond);

void loadWithNlohmann(benchmark::State& state)
{
    const LibraryFile file;
    for (auto _ : state) {
        const auto text = platform::readWholeFile(file.path(), 1'000'000'000);
        const auto loaded = nlohmann::json::parse(text.value()).get<Library>();
        if (loaded != library())
            state.SkipWithError("the library was not read");
    }
    countBytes(state);
}
BENCHMARK(loadWithNlohmann)->Unit(benchmark::kMillisecond);

void encodeLibrary(benchmark::State& state)
{
    for (auto _ : state) {
        std::string text;
        if (!appendJson(text, library(), JsonStyle::pretty))
            state.SkipWithError("the library was not written");
        benchmark::DoNotOptimize(text.data());
    }
    countBytes(state);
}
BENCHMARK(encodeLibrary)->Unit(benchmark::kMillisecond);

void encodeWithNlohmann(benchmark::State& state)
{
    for (auto _ : state) {
        auto text = nlohmann::json(library()).dump(2);
        benchmark::DoNotOptimize(text.data());
    }
    countBytes(state);
}
BENCHMARK(encodeWithNlohmann)->Unit(benchmark::kMillisecond);

/// The whole save with lock, fsync and rename.
void saveLibrary(benchmark::State& state)
{
    const LibraryFile file;
    PalettePersistence store(file.path());
    for (auto _ : state)
        if (!store.save(library()))
            state.SkipWithError("the library was not saved");
    countBytes(state);
}
BENCHMARK(saveLibrary)->Unit(benchmark::kMillisecond)->UseRealTime();

void encodeGeneratedPalettes(benchmark::State& state)
{
    const auto generated = PaletteGenerator {}.generate(*RGBAColor::fromHex("#6E56CF"));
    std::string line;
    for (auto _ : state) {
        line.clear();
        if (!appendJson(line, generated, JsonStyle::compact))
            state.SkipWithError("the palette was not written");
        benchmark::DoNotOptimize(line.data());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * line.size()));
}
BENCHMARK(encodeGeneratedPalettes)->Unit(benchmark::kMicrosecond);

/// A line of this process's own memory account, in bytes.
double memory(std::string_view name)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(name))
            return std::stod(line.substr(name.size() + 1)) * 1024;
    return 0;
}

/// How much more memory a process of its own holds at most, as a multiple of the file.
template <typename Work> double peakMemoryInFiles(Work work)
{
    int result[2];
    if (::pipe(result) != 0)
        return 0;
    const pid_t child = ::fork();
    if (child == 0) {
        ::malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << "5"; // starts the account of the peak anew
        const double before = memory("VmRSS");
        work();
        const double grown = memory("VmHWM") - before;
        ::_exit(::write(result[1], &grown, sizeof grown) == sizeof grown ? 0 : 1);
    }
    double grown = 0;
    if (::read(result[0], &grown, sizeof grown) != sizeof grown)
        grown = 0;
    ::close(result[0]);
    ::close(result[1]);
    ::waitpid(child, nullptr, 0);
    return grown / static_cast<double>(libraryText().size());
}

void peakMemory(benchmark::State& state)
{
    const LibraryFile file;
    for (auto _ : state) {
        state.counters["load"] = peakMemoryInFiles(
            [&] { benchmark::DoNotOptimize(PalettePersistence(file.path()).load().hasValue()); });
        state.counters["save"] = peakMemoryInFiles([&] {
            benchmark::DoNotOptimize(PalettePersistence(file.path()).save(library()).hasValue());
        });
        state.counters["palettes_MB"] = static_cast<double>(libraryText().size()) / 1e6;
        state.counters["nlohmann_load"] = peakMemoryInFiles([&] {
            const auto text = platform::readWholeFile(file.path(), 1'000'000'000);
            benchmark::DoNotOptimize(nlohmann::json::parse(text.value()).get<Library>().size());
        });
    }
}
BENCHMARK(peakMemory)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tintwell

BENCHMARK_MAIN();
