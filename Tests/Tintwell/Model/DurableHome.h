// A home with a library, color lists and drawing programs, for the tests of what may befall it.
#pragma once

#include "MacColorIntegration.h"
#include "PalettePersistence.h"
#include "TemporaryFolder.h"

namespace tintwell {

struct DurableHome {
    explicit DurableHome(const std::filesystem::path& folder)
        : library(folder / "data/Tintwell/saved-palettes.json")
        , store(library, [] { return *platform::parseIso8601("2026-11-22T10:00:00Z"); })
        , installer(platform::ColorListRegistry(folder / "Library/Colors"),
              platform::PalettePublisher({ folder / "config", folder / "data", {} }))
    {
    }

    [[nodiscard]] platform::Result<void> save(const std::string& name)
    {
        return store.save({ { platform::Uuid { { 1 } }, name, platform::Timestamp(), {}, {} } });
    }
    [[nodiscard]] platform::Result<std::filesystem::path> install(const std::string& name)
    {
        return installer.install(
            "Tintwell", { { "a", name, RGBAColor(name == "old", 0, 0, 1), {} } }, std::nullopt);
    }
    [[nodiscard]] bool put(const std::string& name) { return save(name) && install(name); }

    std::filesystem::path library;
    PalettePersistence store;
    MacColorListInstaller installer;
};

inline void installPrograms(const std::filesystem::path& folder)
{
    for (const char* root : { "config/GIMP/2.10", "config/inkscape/palettes", "data/krita" })
        std::filesystem::create_directories(folder / root);
}

} // namespace tintwell
