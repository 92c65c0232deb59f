#include "ViewBridge.h"

#include <utility>

namespace platform {

ViewBridge::ViewBridge(const Observe& observe, Show show, QObject* parent)
    : QObject(parent)
    , show_(std::move(show))
    , subscription_(observe([this] { willChange(); }))
{
}

void ViewBridge::showNow()
{
    pending_ = false;
    show_(std::exchange(spring_, std::nullopt));
}

void ViewBridge::willChange()
{
    if (const auto spring = currentAnimation())
        spring_ = spring;
    if (std::exchange(pending_, true))
        return;
    const auto showPending = [this] {
        if (pending_)
            showNow();
    };
    QMetaObject::invokeMethod(this, showPending, Qt::QueuedConnection);
}

} // namespace platform
