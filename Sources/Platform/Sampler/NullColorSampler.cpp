#include "NullColorSampler.h"

#include "PendingAnswer.h"

namespace platform {

NullColorSampler::NullColorSampler() = default;
NullColorSampler::~NullColorSampler() = default;

void NullColorSampler::show(SelectionHandler handler)
{
    answer_ = std::make_unique<PendingAnswer>(std::move(handler));
    answer_->give(std::nullopt);
}

} // namespace platform
