#include "Request.h"

#include "AutostartCommand.h"
#include "ColorInput.h"
#include "InstallCommands.h"
#include "PaletteGenerator.h"
#include "PaletteStream.h"

#include <algorithm>
#include <thread>

#include <unistd.h>

namespace tintwell {

namespace {

constexpr auto fromInput = "-";

/// What `use` makes of the colour that `text` writes, or the misuse that it is.
template <typename Use> Report withColor(const std::optional<std::string>& text, const Use& use)
{
    const auto color = readColor(text.value_or(""));
    return color ? use(color.value()) : Report::misuse(color.error().description);
}

bool isStream(const Request& request)
{
    return request.command == Command::palette && request.color == fromInput
        && request.paletteFormat == PaletteFormat::jsonLines;
}

/// Puts the colours that standard input holds in the places that ask for them; what comes back
/// tells why that cannot be.
std::optional<Report> takeColorsFromInput(Request& request)
{
    std::vector<std::string*> places;
    if (request.color == fromInput)
        places.push_back(&*request.color);
    if (request.background == fromInput)
        places.push_back(&request.background);
    if (places.empty())
        return std::nullopt;
    auto lines = readColorLines(STDIN_FILENO);
    if (!lines)
        return Report::failure(lines.error().description);
    auto& colors = lines.value();
    const auto counted = [](std::size_t count) {
        return std::to_string(count) + (count == 1 ? " color" : " colors");
    };
    if (colors.size() != places.size())
        return Report::misuse("standard input holds " + counted(colors.size()) + " instead of "
            + counted(places.size()));
    for (std::size_t at = 0; at < places.size(); ++at)
        *places[at] = std::move(colors[at]);
    return std::nullopt;
}

Report performStream(const Request& request)
{
    constexpr unsigned mostJobs = 256;
    const unsigned jobs = request.jobs > 0 ? request.jobs : std::thread::hardware_concurrency();
    return streamPalettes(
        STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO, std::clamp(jobs, 1U, mostJobs));
}

Report performPalette(const Request& request, const Terminal& terminal)
{
    const auto show = [&](const RGBAColor& color) {
        return Report::of(paletteText(color, request.paletteFormat, terminal));
    };
    return request.color ? withColor(request.color, show) : show(seedColor);
}

Report performContrast(const Request& request, const Terminal& terminal)
{
    return withColor(request.color, [&](const RGBAColor& foreground) {
        return withColor(request.background, [&](const RGBAColor& background) {
            return Report::printed(contrastReport(foreground, background, terminal));
        });
    });
}

PalettePersistence library(const Request& request)
{
    return PalettePersistence(request.library.value_or(PalettePersistence::defaultURL()));
}

/// What `use` makes of the library; one that the caller names has to be there.
template <typename Use> Report withLibrary(const Request& request, const Use& use)
{
    std::error_code ignored;
    if (request.library && !std::filesystem::exists(*request.library, ignored))
        return Report::failure("there is no library " + printable(request.library->string()));
    auto store = library(request);
    return use(store);
}

/// What `use` makes of the saved palette whose id begins as the request says.
template <typename Use> Report withSaved(const Request& request, const Use& use)
{
    return withLibrary(request, [&](PalettePersistence& store) {
        const auto saved = loadSaved(store, request.id.value_or(""));
        return saved ? use(saved.value()) : Report::failure(saved.error().description);
    });
}

Report performSave(const Request& request)
{
    return withColor(request.color, [&](const RGBAColor& color) {
        auto store = library(request);
        return saveColor(
            store, color, platform::Uuid::random(), platform::currentTime(), request.libraryFormat);
    });
}

Report performInstall(const Request& request)
{
    MacColorListInstaller installer { platform::ColorListRegistry(), platform::PalettePublisher() };
    if (request.color)
        return withColor(request.color, [&](const RGBAColor& color) {
            return installColors(installer, PaletteGenerator().generate(color).exportColors());
        });
    return withSaved(
        request, [&](const SavedPalette& saved) { return installColors(installer, saved.colors); });
}

Report performCommand(const Request& request, const Terminal& terminal)
{
    switch (request.command) {
    case Command::palette:
        return performPalette(request, terminal);
    case Command::exportColors:
        if (request.exported.listsFormats)
            return Report::printed(exportFormatsLayout());
        return withColor(request.color,
            [&](const RGBAColor& color) { return exportPalette(color, request.exported); });
    case Command::name:
        return withColor(
            request.color, [](const RGBAColor& color) { return Report::printed(nameText(color)); });
    case Command::contrast:
        return performContrast(request, terminal);
    case Command::savePalette:
        return performSave(request);
    case Command::listLibrary:
        return withLibrary(request, [&](PalettePersistence& store) {
            return listSaved(store, request.libraryFormat, terminal);
        });
    case Command::deletePalette:
        return withLibrary(request,
            [&](PalettePersistence& store) { return deleteSaved(store, request.id.value_or("")); });
    case Command::usePalette:
        return withSaved(request, [&](const SavedPalette& saved) {
            return Report::of(paletteText(saved.source, request.paletteFormat, terminal));
        });
    case Command::install:
        return performInstall(request);
    case Command::autostart:
        return changeAutostart(request.autostart);
    case Command::listColorLists:
        break;
    }
    return Report::printed(listsLayout(platform::ColorListRegistry().availableColorLists()));
}

} // namespace

Report perform(Request request, const Terminal& terminal)
{
    if (isStream(request))
        return performStream(request);
    if (auto problem = takeColorsFromInput(request))
        return std::move(*problem);
    auto report = performCommand(request, terminal);
    // What goes to other tools stays as it is.
    if (terminal.depth == ColorDepth::indexed && request.command != Command::exportColors)
        report.output = withIndexedColors(report.output);
    return report;
}

} // namespace tintwell
