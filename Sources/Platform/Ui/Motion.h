// Movements over time. Nothing ticks while nothing moves.
#pragma once

#include "Spring.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

namespace platform {

class Motion;

/// Steps all running movements once a frame of the screen. Tests stop its time and move it by hand.
class MotionClock : public QObject {
public:
    static MotionClock& instance();

    /// Seconds on a monotonic clock.
    [[nodiscard]] double now() const;
    /// Whether a timer is running, which it is only while something moves.
    [[nodiscard]] bool isTicking() const { return timer_.isActive(); }

    /// From now on time moves only by `advance`.
    void holdTime();
    void releaseTime();
    /// Moves held time and steps what runs.
    void advance(double seconds);

private:
    friend class Motion;
    explicit MotionClock(QObject* parent);
    void add(Motion* motion);
    void remove(Motion* motion);
    void tick();
    void updateTimer();

    QTimer timer_;
    QElapsedTimer elapsed_;
    std::optional<double> heldTime_;
    std::vector<Motion*> running_;
};

/// One movement, a member of the widget that moves; it stops when it is destroyed.
class Motion {
public:
    /// `share` is the part of the time that has gone by, at last exactly 1.
    using Step = std::function<void(double share)>;

    Motion() = default;
    ~Motion() { stop(); }
    Motion(const Motion&) = delete;
    Motion& operator=(const Motion&) = delete;

    /// Calls `step` now and every frame until `seconds` are over, then `finished`. A movement that
    /// is under way is dropped where it is. Without any time, or when the desktop asks for no
    /// animation, both are called at once for the end.
    void run(double seconds, Step step, std::function<void()> finished = {});
    /// The same along a spring: `step` gets how far it has come, at last exactly 1.
    void follow(const std::optional<Spring>& spring, std::function<void(double progress)> step,
        std::function<void()> finished = {});

    /// Ends where it is, without a further call.
    void stop();
    /// Jumps to the end.
    void finish();
    [[nodiscard]] bool isRunning() const { return running_; }

private:
    friend class MotionClock;
    void stepTo(double now);

    bool running_ = false;
    double start_ = 0;
    double duration_ = 0;
    Step step_;
    std::function<void()> finished_;
};

/// A movement that starts fast and comes to rest softly: 1 - (1 - share)^3.
[[nodiscard]] double easedOut(double share);

/// A number that moves evenly between 0 and 1, such as how far the plate of a hovered button shows.
class Fade {
public:
    explicit Fade(std::function<void()> changed)
        : changed_(std::move(changed))
    {
    }

    [[nodiscard]] double value() const { return value_; }
    /// Moves towards `target`; the whole way from 0 to 1 would take `seconds`. 0 switches at once.
    void moveTo(double target, double seconds);

private:
    double value_ = 0;
    double target_ = 0;
    std::function<void()> changed_;
    Motion motion_;
};

} // namespace platform
