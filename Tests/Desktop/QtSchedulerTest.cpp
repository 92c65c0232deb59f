#include "QtScheduler.h"

#include <chrono>
#include <gtest/gtest.h>
#include <QCoreApplication>
#include <set>

namespace platform {
namespace {

using namespace std::chrono_literals;

TEST(QtScheduler, RunsEveryTaskOnceFromTheEventLoopAndNotBeforeItIsDue)
{
    int argc = 0;
    QCoreApplication application(argc, nullptr);
    QtScheduler scheduler;
    std::multiset<std::chrono::milliseconds> ran;
    const auto start = std::chrono::steady_clock::now();
    const auto schedule = [&](std::chrono::milliseconds delay) {
        scheduler.after(delay, [&, delay] {
            EXPECT_GE(std::chrono::steady_clock::now() - start, delay);
            ran.insert(delay);
            if (ran.contains(30ms))
                QCoreApplication::quit();
        });
    };
    for (const auto delay : { 0ms, 10ms, 0ms, 30ms })
        schedule(delay);
    EXPECT_TRUE(ran.empty());
    QCoreApplication::exec();
    EXPECT_EQ(ran, (std::multiset { 0ms, 0ms, 10ms, 30ms }));
}

} // namespace
} // namespace platform
