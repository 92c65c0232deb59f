#include "Request.h"

#include "InstallCommands.h"
#include "PaletteGenerator.h"
#include "PaletteStream.h"

#include <unistd.h>

namespace tintwell {

namespace {

constexpr auto streamColor = "-";

/// What `use` makes of the colour that `text` writes, or the misuse that it is.
template <typename Use> Report withColor(const std::optional<std::string>& text, const Use& use)
{
    const auto color = readColor(text.value_or(""));
    return color ? use(color.value()) : Report::misuse(color.error().description);
}

Report performPalette(const Request& request, const Terminal& terminal)
{
    if (request.color == streamColor) {
        if (request.paletteFormat != PaletteFormat::jsonLines)
            return Report::misuse("- reads colors with --format json-lines only");
        return streamPalettes(STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO);
    }
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

Report performSave(const Request& request)
{
    return withColor(request.color, [&](const RGBAColor& color) {
        auto store = library(request);
        return saveColor(
            store, color, platform::Uuid::random(), platform::currentTime(), request.libraryFormat);
    });
}

Report performUse(const Request& request, const Terminal& terminal)
{
    auto store = library(request);
    const auto saved = loadSaved(store, request.id.value_or(""));
    if (!saved)
        return Report::failure(saved.error().description);
    return Report::of(paletteText(saved.value().source, request.paletteFormat, terminal));
}

platform::ColorListRegistry colorLists()
{
    return platform::ColorListRegistry(platform::ColorListRegistry::defaultFolder());
}

Report performInstall(const Request& request)
{
    MacColorListInstaller installer(
        colorLists(), platform::PalettePublisher(platform::PalettePublisher::userFolders()));
    if (request.color)
        return withColor(request.color, [&](const RGBAColor& color) {
            return installColors(installer, PaletteGenerator().generate(color).exportColors());
        });
    auto store = library(request);
    const auto saved = loadSaved(store, request.id.value_or(""));
    if (!saved)
        return Report::failure(saved.error().description);
    return installColors(installer, saved.value().colors);
}

Report performCommand(const Request& request, const Terminal& terminal)
{
    switch (request.command) {
    case Command::palette:
        return performPalette(request, terminal);
    case Command::exportColors:
        return withColor(request.color, [&](const RGBAColor& color) {
            return Report::of(exportText(color, request.exportFormat));
        });
    case Command::name:
        return withColor(
            request.color, [](const RGBAColor& color) { return Report::printed(nameText(color)); });
    case Command::contrast:
        return performContrast(request, terminal);
    case Command::savePalette:
        return performSave(request);
    case Command::listLibrary: {
        auto store = library(request);
        return listSaved(store, request.libraryFormat, terminal);
    }
    case Command::deletePalette: {
        auto store = library(request);
        return deleteSaved(store, request.id.value_or(""));
    }
    case Command::usePalette:
        return performUse(request, terminal);
    case Command::install:
        return performInstall(request);
    case Command::listColorLists:
        break;
    }
    return Report::printed(listsLayout(colorLists().availableColorLists()));
}

} // namespace

Report perform(const Request& request, const Terminal& terminal)
{
    auto report = performCommand(request, terminal);
    if (terminal.depth == ColorDepth::indexed)
        report.output = withIndexedColors(report.output);
    return report;
}

} // namespace tintwell
