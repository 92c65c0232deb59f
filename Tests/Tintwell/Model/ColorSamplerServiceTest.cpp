#include "Fakes.h"
#include "MacColorIntegration.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <vector>

namespace tintwell {
namespace {

using namespace std::chrono_literals;

using Picked = std::optional<platform::Color>;

/// What all samplers of one test have done.
struct Desk {
    int alive = 0;
    std::vector<platform::ColorSampler::SelectionHandler> handlers;
};

class FakeSampler final : public platform::ColorSampler {
public:
    explicit FakeSampler(Desk& desk)
        : desk_(desk)
    {
        ++desk_.alive;
    }
    ~FakeSampler() override { --desk_.alive; }
    void show(SelectionHandler handler) override { desk_.handlers.push_back(std::move(handler)); }

private:
    Desk& desk_;
};

class NoWay final : public platform::ColorSpace {
public:
    std::optional<std::array<double, 3>> toSRGB(
        const std::array<double, 3>& /*components*/) const override
    {
        return std::nullopt;
    }
};

class ColorSamplerServiceTest : public ::testing::Test {
protected:
    std::unique_ptr<ColorSamplerService> makeService()
    {
        return std::make_unique<ColorSamplerService>(
            [this] { return std::make_unique<FakeSampler>(desk); }, scheduler);
    }

    /// What a sampler answers is there only with the next turn of the event loop.
    void answer(std::size_t pick, const Picked& color)
    {
        const auto before = answers.size();
        desk.handlers[pick](color);
        EXPECT_EQ(answers.size(), before);
        scheduler.advance(0ms);
    }

    ScreenColorSampling::Completion completion()
    {
        return [this](const std::optional<RGBAColor>& color) { answers.push_back(color); };
    }

    Desk desk;
    ManualScheduler scheduler;
    std::vector<std::optional<RGBAColor>> answers;
};

TEST_F(ColorSamplerServiceTest, GivesWhatWasPickedAsSRGB)
{
    const struct {
        const char* name;
        Picked picked;
        std::optional<RGBAColor> answer;
    } rows[] = {
        { "sRGB", platform::Color { 0.1, 0.2, 0.3, 1 }, RGBAColor(0.1, 0.2, 0.3, 1) },
        { "cancelled", std::nullopt, std::nullopt },
        { "no way to sRGB", platform::Color { 1, 1, 1, 1, std::make_shared<NoWay>() },
            std::nullopt },
    };
    const auto service = makeService();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        answers.clear();
        service->sample(completion());
        EXPECT_TRUE(answers.empty());
        EXPECT_TRUE(service->hasActiveSampler());
        answer(desk.handlers.size() - 1, row.picked);
        ASSERT_EQ(answers.size(), 1U);
        EXPECT_EQ(answers[0], row.answer);
        EXPECT_FALSE(service->hasActiveSampler());
        EXPECT_EQ(desk.alive, 0);
    }
}

TEST_F(ColorSamplerServiceTest, HasLetTheSamplerGoWhenTheAnswerComes)
{
    const auto service = makeService();
    bool active = true;
    service->sample([&](const auto& /*color*/) { active = service->hasActiveSampler(); });
    answer(0, platform::Color {});
    EXPECT_FALSE(active);
}

TEST_F(ColorSamplerServiceTest, AnswersNothingWhenItGoesFirstAndNeverTwice)
{
    auto service = makeService();
    service->sample(completion());
    service.reset();
    EXPECT_EQ(desk.alive, 0);
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers[0], std::nullopt);
    answer(0, platform::Color {});
    EXPECT_EQ(answers.size(), 1U);
}

TEST_F(ColorSamplerServiceTest, ASecondPickReplacesTheFirst)
{
    const auto service = makeService();
    service->sample(completion());
    service->sample(completion());
    EXPECT_EQ(desk.alive, 1);
    EXPECT_TRUE(answers.empty());
    scheduler.advance(0ms);
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers[0], std::nullopt);
    answer(0, platform::Color {});
    EXPECT_EQ(answers.size(), 1U) << "the first one was answered already";
    EXPECT_TRUE(service->hasActiveSampler());
    answer(1, platform::Color { 1, 1, 1 });
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers[1], RGBAColor(1, 1, 1, 1));
}

TEST_F(ColorSamplerServiceTest, APickMayStartFromTheAnswerOfAnother)
{
    const auto service = makeService();
    service->sample([&](const auto& /*color*/) { service->sample(completion()); });
    answer(0, std::nullopt);
    EXPECT_TRUE(service->hasActiveSampler());
    answer(1, platform::Color { 1, 1, 1 });
    EXPECT_EQ(answers.size(), 1U);
}

} // namespace
} // namespace tintwell
