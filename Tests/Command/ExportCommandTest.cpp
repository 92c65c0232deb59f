#include "ExportCommand.h"

#include <gtest/gtest.h>

namespace tintwell {
namespace {

TEST(ExportCommand, OnlyFilesAndPipesGetBytes)
{
    EXPECT_EQ(misuseOf({ .format = ExportFormat::ase }, /*isTerminal=*/true),
        "ase is no text for a terminal; say --out FILE");
    EXPECT_EQ(misuseOf({ .format = ExportFormat::ase }, /*isTerminal=*/false), "");
    EXPECT_EQ(misuseOf({ .file = "a.ase" }, /*isTerminal=*/true), "");
    EXPECT_EQ(misuseOf({ .format = ExportFormat::css }, /*isTerminal=*/true), "");
}

} // namespace
} // namespace tintwell
