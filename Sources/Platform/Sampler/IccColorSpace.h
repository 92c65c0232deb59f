// A monitor's own RGB space, as its ICC profile describes it.
#pragma once

#include "Color.h"

#include <cstddef>
#include <memory>
#include <span>

namespace platform {

/// Converts a device's RGB to sRGB by the relative colorimetric intent, in double precision.
class IccColorSpace final : public ColorSpace {
public:
    /// The space of a profile file's bytes; nothing when they are no profile of an RGB device.
    [[nodiscard]] static std::shared_ptr<const IccColorSpace> fromProfile(
        std::span<const std::byte> profile);

    ~IccColorSpace() override;
    IccColorSpace(const IccColorSpace&) = delete;
    IccColorSpace& operator=(const IccColorSpace&) = delete;

    [[nodiscard]] std::optional<std::array<double, 3>> toSRGB(
        const std::array<double, 3>& components) const override;

private:
    explicit IccColorSpace(void* transform);

    void* transform_;
};

} // namespace platform
