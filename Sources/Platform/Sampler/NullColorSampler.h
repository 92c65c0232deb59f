// The screen pick of a desktop that has none.
#pragma once

#include "ColorSampler.h"

#include <memory>

namespace platform {

class PendingAnswer;

/// Answers every pick with nothing.
class NullColorSampler final : public ColorSampler {
public:
    NullColorSampler();
    ~NullColorSampler() override;

    void show(SelectionHandler handler) override;

private:
    std::unique_ptr<PendingAnswer> answer_;
};

} // namespace platform
