#include "QtScheduler.h"

#include <gtest/gtest.h>
#include <QCoreApplication>

#include <chrono>
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
            if (ran.contains(131ms))
                QCoreApplication::quit();
        });
    };
    // A timer of the usual precision may fire a twentieth of such a delay too soon.
    for (const auto delay : { 0ms, 10ms, 0ms, 103ms, 109ms, 117ms, 131ms })
        schedule(delay);
    EXPECT_TRUE(ran.empty());
    QCoreApplication::exec();
    EXPECT_EQ(ran, (std::multiset { 0ms, 0ms, 10ms, 103ms, 109ms, 117ms, 131ms }));
}

} // namespace
} // namespace platform
