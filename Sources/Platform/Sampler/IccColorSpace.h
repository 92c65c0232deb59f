// A monitor's own RGB space, as its ICC profile describes it.
#pragma once

#include "Color.h"

#include <cstddef>
#include <memory>
#include <span>

namespace platform {

/// The RGB of a device by the bytes of its profile, in double precision, by the relative
/// colorimetric intent; nothing when they are no profile of an RGB device.
[[nodiscard]] std::shared_ptr<const ColorSpace> iccColorSpace(std::span<const std::byte> profile);

} // namespace platform
