#include "ExportCommand.h"

#include "AtomicFile.h"
#include "Terminal.h"

namespace tintwell {

std::optional<ExportFormat> ExportOrder::formatMeant() const
{
    if (format || !file)
        return format.value_or(ExportFormat::json);
    return exportFormatOf(*file);
}

std::string misuseOf(const ExportOrder& order, bool isTerminal)
{
    if (order.file && !order.file->has_filename())
        return "--out needs the name of a file";
    const auto format = order.formatMeant();
    if (!format)
        return inQuotes(order.file->filename().string())
            + " has no ending that tells its format; say --format (see tintwell-cli export --list)";
    const auto& traits = traitsOf(*format);
    if (order.notation && !traits.hasNotations)
        return "--colors does not go with " + std::string(traits.word);
    if (!order.file && !traits.isText && isTerminal)
        return std::string(traits.word) + " is no text for a terminal; say --out FILE";
    return "";
}

Report exportPalette(const RGBAColor& source, const ExportOrder& order)
{
    const auto palette = derivedPalette(source);
    if (!palette)
        return Report::failure(palette.error().description);
    auto content = exported(palette.value(), order.formatMeant().value_or(ExportFormat::json),
        order.notation.value_or(ColorNotation::hex));
    if (!content || !order.file)
        return Report::of(std::move(content));
    std::error_code ignored;
    const auto written = platform::writeFileAtomically(
        std::filesystem::absolute(*order.file, ignored), content.value());
    if (!written)
        return Report::failure("Export failed: " + written.error().description);
    return Report::printed("Exported " + printable(order.file->filename().string()) + "\n");
}

std::string exportFormatsLayout()
{
    constexpr int wordWidth = 10;
    constexpr int endingWidth = 15;
    std::string text;
    for (const auto& traits : exportFormats)
        text += fitted(traits.word, wordWidth) + fitted(traits.ending, endingWidth)
            + std::string(traits.description) + "\n";
    return text;
}

} // namespace tintwell
