#include "DesktopColorSampler.h"
#include "IccColorSpace.h"
#include "NullColorSampler.h"
#include "PendingAnswer.h"
#include "X11ColorSampler.h"

#include <gtest/gtest.h>
#include <lcms2.h>
#include <QCoreApplication>

#include <cstring>
#include <vector>

namespace platform {
namespace {

TEST(SamplerKind, FollowsTheSession)
{
    const struct {
        const char* name;
        SamplerSession session;
        SamplerKind kind;
    } rows[] = {
        { "X11", { "", "x11", true, true }, SamplerKind::loupe },
        { "X11 without a bus", { "", "x11", true, false }, SamplerKind::loupe },
        { "a bare X server", { "", "", true, false }, SamplerKind::loupe },
        { "Wayland", { "wayland-0", "wayland", false, true }, SamplerKind::portal },
        { "X11 inside Wayland", { "wayland-0", "", true, true }, SamplerKind::portal },
        { "X11 inside Wayland by its type", { "", "wayland", true, true }, SamplerKind::portal },
        { "Wayland without a bus", { "wayland-0", "wayland", true, false }, SamplerKind::none },
        { "neither", { "", "tty", false, true }, SamplerKind::portal },
        { "nothing at all", { "", "", false, false }, SamplerKind::none },
    };
    for (const auto& row : rows)
        EXPECT_EQ(samplerKind(row.session), row.kind) << row.name;
}

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
    EXPECT_EQ(IccColorSpace::fromProfile({}), nullptr);
    EXPECT_EQ(IccColorSpace::fromProfile(truncated), nullptr);
    EXPECT_EQ(IccColorSpace::fromProfile(bytesOf(cmsCreateLab4Profile(nullptr))), nullptr);
    EXPECT_EQ(IccColorSpace::fromProfile(std::vector<std::byte>(4096)), nullptr);
}

TEST(IccColorSpace, KeepsTheEightBitsOfAnSRGBScreen)
{
    const auto space = IccColorSpace::fromProfile(bytesOf(cmsCreate_sRGBProfile()));
    ASSERT_NE(space, nullptr);
    for (int step = 0; step < 256; ++step) {
        const std::array in { step / 255.0, 1 - step / 255.0, 0.5 };
        const auto out = space->toSRGB(in);
        ASSERT_TRUE(out);
        for (std::size_t index = 0; index < 3; ++index)
            EXPECT_NEAR((*out)[index], in[index], 0.1 / 255) << "step " << step;
    }
}

/// Runs what is waiting in the event loop.
void turn()
{
    QCoreApplication::processEvents();
}

TEST(PendingAnswer, ComesOnceAndLater)
{
    int calls = 0;
    PendingAnswer answer([&](const auto& color) {
        ++calls;
        EXPECT_TRUE(color);
    });
    answer.give(Color {});
    answer.give(std::nullopt);
    EXPECT_EQ(calls, 0);
    turn();
    EXPECT_EQ(calls, 1);
}

TEST(ColorSamplers, AnswerOnceMayBeDestroyedByItAndSayNothingAfterwards)
{
    const std::pair<const char*, std::function<std::unique_ptr<ColorSampler>()>> makers[] = {
        { "none", [] { return std::make_unique<NullColorSampler>(); } },
        { "loupe without X11",
            [] { return std::make_unique<X11ColorSampler>(SamplerHooks {}, nullptr); } },
        { "loupe that goes on to another",
            [] {
                return std::make_unique<X11ColorSampler>(
                    SamplerHooks {}, [] { return std::make_unique<NullColorSampler>(); });
            } },
    };
    for (const auto& [name, make] : makers) {
        SCOPED_TRACE(name);
        int calls = 0;
        auto sampler = make();
        sampler->show([&](const auto& color) {
            ++calls;
            EXPECT_FALSE(color);
            sampler.reset();
        });
        EXPECT_EQ(calls, 0);
        turn();
        EXPECT_EQ(calls, 1);

        sampler = make();
        sampler->show([&](const auto& /*color*/) { ++calls; });
        sampler.reset();
        turn();
        EXPECT_EQ(calls, 1);
    }
}

} // namespace
} // namespace platform
