#include "Motion.h"

#include "ThemeSource.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

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

void Motion::run(double duration, Step step, std::function<void()> finished)
{
    stop();
    if (duration <= 0 || ThemeSource::instance().reducesMotion()) {
        step(duration);
        if (finished)
            finished();
        return;
    }
    auto& clock = MotionClock::instance();
    start_ = clock.now();
    duration_ = duration;
    step_ = std::move(step);
    finished_ = std::move(finished);
    running_ = true;
    clock.add(this);
    stepTo(start_);
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
        stepTo(start_ + duration_);
}

void Motion::stepTo(double now)
{
    const auto seconds = std::min(now - start_, duration_);
    if (seconds < duration_) {
        // Copies, because a step may start this movement anew or destroy it.
        const auto step = step_;
        step(seconds);
        return;
    }
    stop();
    const auto step = std::move(step_);
    const auto finished = std::move(finished_);
    step(seconds);
    if (finished)
        finished();
}

void Fade::moveTo(double target, double seconds)
{
    if (target == target_ && (motion_.isRunning() || value_ == target))
        return;
    target_ = target;
    const auto from = value_;
    const auto duration = seconds * std::abs(target - from);
    motion_.run(duration, [this, from, duration](double elapsed) {
        value_ = elapsed < duration ? from + (target_ - from) * elapsed / duration : target_;
        changed_();
    });
}

} // namespace platform
