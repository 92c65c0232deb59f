#include "Motion.h"

#include "ThemeSource.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace platform {

namespace {

int frameMilliseconds()
{
    const auto* screen = QGuiApplication::primaryScreen();
    const auto rate = screen != nullptr ? screen->refreshRate() : 60;
    return std::clamp(static_cast<int>(1000 / std::max(rate, 1.0)), 4, 33);
}

} // namespace

MotionClock& MotionClock::instance()
{
    static auto* clock = new MotionClock(qApp);
    return *clock;
}

MotionClock::MotionClock(QObject* parent)
    : QObject(parent)
{
    elapsed_.start();
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &MotionClock::tick);
}

double MotionClock::now() const
{
    return heldTime_.value_or(static_cast<double>(elapsed_.nsecsElapsed()) / 1e9);
}

void MotionClock::holdTime()
{
    heldTime_ = now();
    updateTimer();
}

void MotionClock::releaseTime()
{
    heldTime_.reset();
    updateTimer();
}

void MotionClock::advance(double seconds)
{
    heldTime_ = now() + seconds;
    tick();
}

void MotionClock::add(Motion* motion)
{
    running_.push_back(motion);
    updateTimer();
}

void MotionClock::remove(Motion* motion)
{
    running_.erase(std::remove(running_.begin(), running_.end(), motion), running_.end());
    updateTimer();
}

void MotionClock::tick()
{
    const auto now = this->now();
    const auto moving = running_;
    for (auto* motion : moving) {
        // A step may end or destroy other movements.
        if (std::find(running_.begin(), running_.end(), motion) != running_.end())
            motion->stepTo(now);
    }
}

void MotionClock::updateTimer()
{
    const auto shouldTick = !running_.empty() && !heldTime_.has_value();
    if (shouldTick && !timer_.isActive())
        timer_.start(frameMilliseconds());
    else if (!shouldTick)
        timer_.stop();
}

void Motion::run(double seconds, Step step, std::function<void()> finished)
{
    stop();
    if (seconds <= 0 || ThemeSource::instance().reducesMotion()) {
        step(1);
        if (finished)
            finished();
        return;
    }
    auto& clock = MotionClock::instance();
    start_ = clock.now();
    duration_ = seconds;
    step_ = std::move(step);
    finished_ = std::move(finished);
    running_ = true;
    clock.add(this);
    stepTo(start_);
}

void Motion::follow(const std::optional<Spring>& spring, std::function<void(double progress)> step,
    std::function<void()> finished)
{
    const auto duration = spring.has_value() ? springDuration(*spring) : 0;
    run(
        duration,
        [spring, duration, step = std::move(step)](
            double share) { step(share < 1 ? springProgress(share * duration, *spring) : 1); },
        std::move(finished));
}

void Motion::stop()
{
    if (!running_)
        return;
    running_ = false;
    MotionClock::instance().remove(this);
}

void Motion::finish()
{
    if (running_)
        stepTo(std::numeric_limits<double>::infinity());
}

void Motion::stepTo(double now)
{
    const auto share = (now - start_) / duration_;
    if (share < 1) {
        // Copies, because a step may start this movement anew or destroy it.
        const auto step = step_;
        step(share);
        return;
    }
    stop();
    const auto step = std::move(step_);
    const auto finished = std::move(finished_);
    step(1);
    if (finished)
        finished();
}

double easedOut(double share)
{
    const auto left = 1 - share;
    return 1 - left * left * left;
}

void Fade::moveTo(double target, double seconds)
{
    if (target == target_ && (motion_.isRunning() || value_ == target))
        return;
    target_ = target;
    const auto from = value_;
    motion_.run(seconds * std::abs(target - from), [this, from](double share) {
        value_ = share < 1 ? from + (target_ - from) * share : target_;
        changed_();
    });
}

} // namespace platform
