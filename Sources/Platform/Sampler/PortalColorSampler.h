// The screen pick of the desktop portal, the only one that a Wayland session allows.
#pragma once

#include "ColorSampler.h"

#include <QPointer>

#include <chrono>
#include <functional>

namespace platform {

class PortalRequest;

/// Asks org.freedesktop.portal.Screenshot for one colour, without ever waiting for the bus.
///
/// Whatever goes wrong is nothing: no bus, no portal, a portal that cannot pick or ends in the
/// middle, an answer of another form, or none within the time limit. A pick that is dropped is
/// closed at the portal, too.
class PortalColorSampler final : public ColorSampler {
public:
    static constexpr std::chrono::milliseconds answerTime { 120000 };

    /// `impossible` is called before the answer when there is no portal that could pick.
    explicit PortalColorSampler(
        std::function<void()> impossible = [] {}, std::chrono::milliseconds timeLimit = answerTime);
    ~PortalColorSampler() override;

    void show(SelectionHandler handler) override;

private:
    std::function<void()> impossible_;
    std::chrono::milliseconds timeLimit_;
    QPointer<PortalRequest> request_;
};

} // namespace platform
