// A palette for other tools on the command line: printed or put into a file.
#pragma once

#include "PaletteExport.h"
#include "Report.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tintwell {

/// What is asked of an export. Without a format the ending of the file tells.
struct ExportOrder {
    bool listsFormats = false;
    std::optional<ExportFormat> format {};
    std::optional<ColorNotation> notation {};
    /// Where it goes; nothing stands for standard output.
    std::optional<std::filesystem::path> file {};

    [[nodiscard]] std::optional<ExportFormat> formatMeant() const;
};

/// What is wrong with `order` for an output that is a terminal or not; empty when all is well.
[[nodiscard]] std::string misuseOf(const ExportOrder& order, bool isTerminal);

/// Prints the palette of `source`, or replaces a file by it, whole or not at all.
[[nodiscard]] Report exportPalette(const RGBAColor& source, const ExportOrder& order);

/// One line a format: its word, its ending, what it is.
[[nodiscard]] std::string exportFormatsLayout();

} // namespace tintwell
