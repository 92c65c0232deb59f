// The one answer of a pick, given from the event loop.
#pragma once

#include "ColorSampler.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <memory>
#include <optional>
#include <utility>

namespace platform {

/// Keeps a selection handler until its one call. Destroying it forgets a call that is still to
/// come.
class PendingAnswer {
public:
    explicit PendingAnswer(ColorSampler::SelectionHandler handler)
        : handler_(std::make_shared<ColorSampler::SelectionHandler>(std::move(handler)))
    {
    }

    /// Calls the handler from the main thread's next turn of the event loop, never inside this
    /// call; the sampler that answers may be destroyed by it. Only the first answer counts.
    void give(std::optional<Color> color)
    {
        const auto call = [waiting = std::weak_ptr(handler_), color = std::move(color)] {
            const auto handler = waiting.lock();
            if (!handler || !*handler)
                return;
            const auto once = std::exchange(*handler, nullptr);
            once(color);
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), call, Qt::QueuedConnection);
    }

    /// Hands the handler on to another sampler; this answer is then given.
    [[nodiscard]] ColorSampler::SelectionHandler takeHandler()
    {
        return std::exchange(*handler_, nullptr);
    }

private:
    std::shared_ptr<ColorSampler::SelectionHandler> handler_;
};

} // namespace platform
