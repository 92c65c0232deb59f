#include "ViewBridge.h"

#include <gtest/gtest.h>
#include <QCoreApplication>

namespace platform {
namespace {

class ViewBridgeTest : public ::testing::Test {
protected:
    std::vector<std::optional<Spring>> shown_;
    Observers observers_;
    ViewBridge bridge_ { [this](auto willChange) { return observers_.observe(willChange); },
        [this](const std::optional<Spring>& spring) { shown_.push_back(spring); } };
    const Spring spring_ { 0.32, 0.85 };
};

TEST_F(ViewBridgeTest, ShowsOnceOnTheNextTurnForAnyNumberOfAnnouncements)
{
    observers_.announce();
    observers_.announce();
    EXPECT_TRUE(shown_.empty());
    QCoreApplication::processEvents();
    ASSERT_EQ(shown_.size(), 1U);
    EXPECT_FALSE(shown_[0].has_value());
    QCoreApplication::processEvents();
    EXPECT_EQ(shown_.size(), 1U);
}

TEST_F(ViewBridgeTest, HandsOverTheSpringOfATransactionOnce)
{
    withAnimation(spring_, [this] { observers_.announce(); });
    observers_.announce();
    QCoreApplication::processEvents();
    ASSERT_EQ(shown_.size(), 1U);
    EXPECT_EQ(shown_[0], spring_);
    observers_.announce();
    QCoreApplication::processEvents();
    ASSERT_EQ(shown_.size(), 2U);
    EXPECT_FALSE(shown_[1].has_value());
}

TEST_F(ViewBridgeTest, ShowsAtOnceOnDemandAndNotAgain)
{
    observers_.announce();
    bridge_.showNow();
    QCoreApplication::processEvents();
    EXPECT_EQ(shown_.size(), 1U);
}

} // namespace
} // namespace platform
