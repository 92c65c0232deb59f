#include "Motion.h"

#include "PageStack.h"
#include "ThemeSource.h"
#include "Tint.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QPainter>

#include <cmath>
#include <numbers>

namespace platform {
namespace {

constexpr Spring testSpring { .response = 0.32, .dampingFraction = 0.85, .blendDuration = 0 };

/// Integrates x'' = w^2 (1 - x) - 2 z w x' in small steps.
double integratedSpring(double seconds, const Spring& spring)
{
    const auto w = 2 * std::numbers::pi / spring.response;
    constexpr double step = 1e-6;
    double x = 0;
    double v = 0;
    for (int i = 0; i < static_cast<int>(std::lround(seconds / step)); ++i) {
        v += step * (w * w * (1 - x) - 2 * spring.dampingFraction * w * v);
        x += step * v;
    }
    return x;
}

TEST(SpringProgress, AgreesWithTheEquationOfMotion)
{
    for (const auto& spring : { testSpring, Spring { 0.5, 0.4 }, Spring { 0.32, 1 } }) {
        for (const auto t : { 0.01, 0.05, 0.1, 0.2, 0.3, 0.45 })
            EXPECT_NEAR(springProgress(t, spring), integratedSpring(t, spring), 1e-3) << t;
    }
}

TEST(SpringProgress, StartsAtRestOvershootsALittleAndIsDoneWhenItSays)
{
    EXPECT_EQ(springProgress(-1, testSpring), 0);
    EXPECT_EQ(springProgress(0, testSpring), 0);
    EXPECT_EQ(springProgress(0.1, Spring {}), 1);
    EXPECT_DOUBLE_EQ(springDuration(testSpring), 0.45);
    EXPECT_NEAR(springProgress(springDuration(testSpring), testSpring), 1, 0.002);
    double peak = 0;
    for (double t = 0; t < 1; t += 0.001)
        peak = std::max(peak, springProgress(t, testSpring));
    EXPECT_GT(peak, 1.001);
    EXPECT_LT(peak, 1.01);
}

class HeldTime : public ::testing::Test {
protected:
    void SetUp() override { clock_.holdTime(); }
    void TearDown() override
    {
        clock_.releaseTime();
        ThemeSource::instance().setDesktopPreferences({ Appearance::light, false });
    }

    MotionClock& clock_ = MotionClock::instance();
};

using MotionTest = HeldTime;

TEST_F(MotionTest, StepsThroughItsDurationAndStops)
{
    Motion motion;
    std::vector<double> steps;
    int finished = 0;
    motion.run(
        0.1, [&](double share) { steps.push_back(share); }, [&] { ++finished; });
    EXPECT_EQ(steps, std::vector<double> { 0 });
    clock_.advance(0.04);
    EXPECT_NEAR(steps.back(), 0.4, 1e-9);
    EXPECT_TRUE(motion.isRunning());
    clock_.advance(0.5);
    EXPECT_EQ(steps.back(), 1);
    EXPECT_FALSE(motion.isRunning());
    clock_.advance(0.1);
    EXPECT_EQ(steps.size(), 3U);
    EXPECT_EQ(finished, 1);
}

TEST_F(MotionTest, TicksOnlyWhileSomethingMoves)
{
    clock_.releaseTime();
    EXPECT_FALSE(clock_.isTicking());
    {
        Motion motion;
        motion.run(10, [](double) {});
        EXPECT_TRUE(clock_.isTicking());
        Motion other;
        other.run(10, [](double) {});
        motion.stop();
        EXPECT_TRUE(clock_.isTicking());
    }
    EXPECT_FALSE(clock_.isTicking());
}

TEST_F(MotionTest, MayStartAnewAndEndOthersInsideAStep)
{
    Motion first;
    Motion second;
    int secondSteps = 0;
    second.run(1, [&](double) { ++secondSteps; });
    first.run(1, [&](double share) {
        if (share > 0)
            second.stop();
    });
    second.run(1, [&](double) { ++secondSteps; });
    clock_.advance(0.1);
    EXPECT_EQ(secondSteps, 2);
    int restarted = 0;
    first.run(
        0.1, [](double) {}, [&] { first.run(0.1, [&](double) { ++restarted; }); });
    clock_.advance(0.2);
    EXPECT_EQ(restarted, 1);
    EXPECT_TRUE(first.isRunning());
}

TEST_F(MotionTest, SwitchesAtOnceWhenTheDesktopAsksForNoAnimation)
{
    ThemeSource::instance().setDesktopPreferences({ Appearance::light, true });
    Motion motion;
    std::vector<double> steps;
    bool finished = false;
    motion.run(
        0.1, [&](double share) { steps.push_back(share); }, [&] { finished = true; });
    EXPECT_EQ(steps, std::vector<double> { 1 });
    EXPECT_TRUE(finished);
    Fade fade([] {});
    fade.moveTo(1, 0.09);
    EXPECT_EQ(fade.value(), 1);
    PageStack stack;
    stack.addPage(new QWidget, PageEdge::leading);
    stack.addPage(new QWidget, PageEdge::trailing);
    stack.show();
    stack.showPage(stack.findChildren<QWidget*>().at(1), testSpring);
    EXPECT_FALSE(stack.isMoving());
    EXPECT_EQ(stack.findChildren<QWidget*>().size(), 2);
}

TEST_F(MotionTest, FadesBackFromWhereItIs)
{
    Fade fade([] {});
    fade.moveTo(1, 0.09);
    clock_.advance(0.045);
    EXPECT_NEAR(fade.value(), 0.5, 1e-9);
    fade.moveTo(0, 0.14);
    clock_.advance(0.035);
    EXPECT_NEAR(fade.value(), 0.25, 1e-9);
    clock_.advance(0.036);
    EXPECT_EQ(fade.value(), 0);
    fade.moveTo(1, 0);
    EXPECT_EQ(fade.value(), 1);
}

/// A page in one colour.
class Plain : public QWidget {
public:
    explicit Plain(const QColor& color)
        : color_(color)
    {
    }
    QColor color_;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), color_); }
};

class PageStackTest : public HeldTime {
protected:
    PageStackTest()
    {
        stack_.resize(200, 20);
        stack_.addPage(studio_, PageEdge::leading);
        stack_.addPage(themes_, PageEdge::none);
        stack_.addPage(saved_, PageEdge::trailing);
        stack_.show();
    }

    QColor colorAt(int x) { return stack_.grab().toImage().pixelColor(x, 10); }

    PageStack stack_;
    Plain* studio_ = new Plain(Qt::red);
    Plain* themes_ = new Plain(Qt::green);
    Plain* saved_ = new Plain(Qt::blue);
};

TEST_F(PageStackTest, SwitchesAtOnceWithoutASpring)
{
    stack_.showPage(saved_);
    EXPECT_FALSE(stack_.isMoving());
    EXPECT_EQ(colorAt(100), QColor(Qt::blue));
    EXPECT_TRUE(studio_->isHidden());
}

TEST_F(PageStackTest, SlidesBothPagesTheirOwnWay)
{
    stack_.showPage(saved_);
    stack_.showPage(studio_, testSpring);
    EXPECT_EQ(colorAt(100), QColor(Qt::blue));
    clock_.advance(0.08);
    const auto progress = springProgress(0.08, testSpring);
    const auto seam = static_cast<int>(std::lround(200 * progress));
    ASSERT_GT(seam, 20);
    ASSERT_LT(seam, 180);
    const auto& ground = themeOf(Appearance::light).windowBackground;
    EXPECT_NEAR(colorAt(seam - 10).green(), blended(ground, Qt::red, progress).green(), 3);
    EXPECT_NEAR(colorAt(seam + 10).red(), blended(Qt::blue, ground, progress).red(), 3);
    clock_.advance(1);
    EXPECT_FALSE(stack_.isMoving());
    EXPECT_EQ(colorAt(100), QColor(Qt::red));
}

TEST_F(PageStackTest, OnlyFadesAPageWithoutAnEdgeAndShowsItsChanges)
{
    stack_.showPage(themes_, testSpring);
    clock_.advance(0.1);
    themes_->color_ = Qt::black;
    const auto progress = springProgress(0.1, testSpring);
    const auto& ground = themeOf(Appearance::light).windowBackground;
    const auto oldPage = 200 - static_cast<int>(std::lround(200 * progress));
    EXPECT_NEAR(colorAt(oldPage + 20).red(), blended(ground, Qt::black, progress).red(), 3);
    stack_.showPage(saved_);
    EXPECT_EQ(colorAt(100), QColor(Qt::blue));
}

TEST(Tint, BlendsEveryColor)
{
    const Tint from { Qt::black, Qt::black, Qt::black, Qt::black, Qt::black, false };
    const Tint to { Qt::white, Qt::white, Qt::white, Qt::white, Qt::white, true };
    EXPECT_EQ(blended(from, to, 1), to);
    const auto half = blended(from, to, 0.5);
    for (const auto field :
        { &Tint::fill, &Tint::ink, &Tint::text, &Tint::focusRing, &Tint::overlay })
        EXPECT_EQ((half.*field).red(), 128);
}

} // namespace
} // namespace platform
