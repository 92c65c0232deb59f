#include "PaletteExport.h"

#include <gtest/gtest.h>

namespace tintwell {
namespace {

TEST(PaletteExport, TheEndingTellsTheFormat)
{
    for (const auto& traits : exportFormats) {
        EXPECT_EQ(exportFormatOf("a.b" + std::string(traits.ending)), traits.format);
        EXPECT_EQ(traitsOf(traits.format).word, traits.word);
    }
    EXPECT_EQ(exportFormatOf("/x.css/VIOLET.GPL"), ExportFormat::gpl);
    for (const char* none : { "", "css", "violet", "violet.css.bak", "/x.css/y" })
        EXPECT_FALSE(exportFormatOf(none)) << none;
}

} // namespace
} // namespace tintwell
