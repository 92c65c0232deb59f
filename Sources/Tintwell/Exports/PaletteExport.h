// The forms in which a palette leaves for other tools, and writing them.
#pragma once

#include "GeneratedPalette.h"
#include "Result.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tintwell {

enum class ExportFormat { json, gpl, css, tailwind, scss, tokens, ase, svg, png };

/// How a style sheet writes its colours.
enum class ColorNotation { hex, oklch };

struct ExportFormatTraits {
    ExportFormat format;
    /// What the command line calls it.
    const char* word;
    /// What its files end in. Where one ending ends in another, the longer one tells.
    std::string_view ending;
    std::string_view description;
    bool isText;
    /// Whether it can write its colours in more than one notation.
    bool hasNotations;
};

// clang-format off
inline constexpr std::array exportFormats {
    //                   format                   word        ending           description                    isText hasNotations
    ExportFormatTraits { ExportFormat::json,      "json",     ".json",         "List of colors",              true,  false },
    ExportFormatTraits { ExportFormat::gpl,       "gpl",      ".gpl",          "Palette of drawing programs", true,  false },
    ExportFormatTraits { ExportFormat::css,       "css",      ".css",          "CSS custom properties",       true,  true  },
    ExportFormatTraits { ExportFormat::tailwind,  "tailwind", ".tailwind.css", "Tailwind CSS 4 theme",        true,  true  },
    ExportFormatTraits { ExportFormat::scss,      "scss",     ".scss",         "Sass map",                    true,  true  },
    ExportFormatTraits { ExportFormat::tokens,    "tokens",   ".tokens.json",  "Design tokens 2025.10",       true,  false },
    ExportFormatTraits { ExportFormat::ase,       "ase",      ".ase",          "Swatches of layout programs", false, false },
    ExportFormatTraits { ExportFormat::svg,       "svg",      ".svg",          "Swatch sheet to scale",       true,  false },
    ExportFormatTraits { ExportFormat::png,       "png",      ".png",          "Swatch sheet as a picture",   false, false },
};
// clang-format on

[[nodiscard]] const ExportFormatTraits& traitsOf(ExportFormat format);

/// The format that the ending of `file` stands for, in either case.
[[nodiscard]] std::optional<ExportFormat> exportFormatOf(const std::filesystem::path& file);

/// The palette of `source`. The error tells of a source so far off that its colours are no numbers,
/// as a library edited by hand may hold.
[[nodiscard]] platform::Result<GeneratedPalette> derivedPalette(const RGBAColor& source);

/// The whole content of a file of that format. `notation` matters only where the format has
/// several.
[[nodiscard]] platform::Result<std::string> exported(const GeneratedPalette& palette,
    ExportFormat format, ColorNotation notation = ColorNotation::hex);

} // namespace tintwell
