#include "IccColorSpace.h"

#include <gtest/gtest.h>
#include <lcms2.h>

#include <cstring>
#include <vector>

namespace platform {
namespace {

std::vector<std::byte> bytesOf(cmsHPROFILE profile)
{
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    std::vector<std::byte> bytes(size);
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

TEST(IccColorSpace, ReadsNothingButRGBProfiles)
{
    auto truncated = bytesOf(cmsCreate_sRGBProfile());
    truncated.resize(200);
    EXPECT_EQ(iccColorSpace({}), nullptr);
    EXPECT_EQ(iccColorSpace(truncated), nullptr);
    EXPECT_EQ(iccColorSpace(bytesOf(cmsCreateLab4Profile(nullptr))), nullptr);
    EXPECT_EQ(iccColorSpace(std::vector<std::byte>(4096)), nullptr);
}

TEST(IccColorSpace, KeepsTheEightBitsOfAnSRGBScreen)
{
    const auto space = iccColorSpace(bytesOf(cmsCreate_sRGBProfile()));
    ASSERT_NE(space, nullptr);
    for (int step = 0; step < 256; ++step) {
        const std::array in { step / 255.0, 1 - step / 255.0, 0.5 };
        const auto out = space->toSRGB(in);
        ASSERT_TRUE(out);
        for (std::size_t index = 0; index < 3; ++index)
            EXPECT_NEAR((*out)[index], in[index], 0.1 / 255) << "step " << step;
    }
}

} // namespace
} // namespace platform
