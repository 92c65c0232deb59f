// From "something is about to change" to one redraw.
#pragma once

#include "Animation.h"
#include "Observers.h"

#include <QObject>

#include <functional>
#include <optional>

namespace platform {

/// An object announces every write before it stores the value, often several times in a row. The
/// bridge only remembers that, and on the next turn of the event loop, when all values are in
/// place, has everything shown once.
class ViewBridge : public QObject {
public:
    using Observe = std::function<Subscription(std::function<void()> willChange)>;
    /// Receives the spring of the transaction that announced something since the last time, or
    /// nothing when the new state is to appear at once.
    using Show = std::function<void(const std::optional<Spring>& spring)>;

    /// Does not show anything yet; call `showNow` for the first time.
    ViewBridge(const Observe& observe, Show show, QObject* parent = nullptr);

    /// Shows what is pending, or the present state, without waiting for the event loop.
    void showNow();

private:
    void willChange();

    Show show_;
    std::optional<Spring> spring_;
    bool pending_ = false;
    Subscription subscription_;
};

} // namespace platform
