#include "Uuid.h"

#include <gtest/gtest.h>

#include <set>

namespace platform {
namespace {

TEST(Uuid, ReadsEitherCaseAndWritesUpperCase)
{
    const auto upper = Uuid::fromText("0F8FAD5B-D9CB-469F-A165-70867728950E");
    ASSERT_TRUE(upper);
    EXPECT_EQ(upper->bytes[0], 0x0F);
    EXPECT_EQ(upper->bytes[15], 0x0E);
    EXPECT_EQ(upper, Uuid::fromText("0f8fad5b-d9cb-469f-a165-70867728950e"));
    EXPECT_EQ(upper, Uuid::fromText("0f8FAd5b-D9cb-469f-A165-70867728950e"));
    EXPECT_EQ(upper->text(), "0F8FAD5B-D9CB-469F-A165-70867728950E");
    EXPECT_EQ(Uuid {}.text(), "00000000-0000-0000-0000-000000000000");
}

TEST(Uuid, RefusesEverythingElse)
{
    const char* const rows[] = {
        "",
        "0F8FAD5BD9CB469FA16570867728950E",
        "{0F8FAD5B-D9CB-469F-A165-70867728950E}",
        "urn:uuid:0F8FAD5B-D9CB-469F-A165-70867728950E",
        " 0F8FAD5B-D9CB-469F-A165-70867728950E",
        "0F8FAD5B-D9CB-469F-A165-70867728950E ",
        "0F8FAD5B-D9CB-469F-A165-70867728950",
        "0F8FAD5B-D9CB-469F-A165-70867728950EA",
        "0F8FAD5B-D9CB-469F-A165-70867728950G",
        "0F8FAD5-BD9CB-469F-A165-70867728950E",
        "0F8FAD5B-D9CB-469F-A16570867728950E-",
        "0F8FAD5B D9CB 469F A165 70867728950E",
    };
    for (const auto* row : rows)
        EXPECT_EQ(Uuid::fromText(row), std::nullopt) << row;
}

TEST(Uuid, RandomOnesAreVersionFourAndDiffer)
{
    std::set<Uuid> seen;
    for (int i = 0; i < 1000; ++i) {
        const auto uuid = Uuid::random();
        EXPECT_EQ(uuid.bytes[6] >> 4, 4);
        EXPECT_EQ(uuid.bytes[8] >> 6, 2);
        EXPECT_TRUE(seen.insert(uuid).second);
        EXPECT_EQ(Uuid::fromText(uuid.text()), uuid);
    }
}

} // namespace
} // namespace platform
