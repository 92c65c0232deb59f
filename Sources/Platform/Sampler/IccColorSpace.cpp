#include "IccColorSpace.h"

#include <lcms2.h>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

struct CloseProfile {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};
using Profile = std::unique_ptr<void, CloseProfile>;

class IccColorSpace final : public ColorSpace {
public:
    explicit IccColorSpace(cmsHTRANSFORM transform)
        : transform_(transform)
    {
    }
    ~IccColorSpace() override { cmsDeleteTransform(transform_); }
    IccColorSpace(const IccColorSpace&) = delete;
    IccColorSpace& operator=(const IccColorSpace&) = delete;

    [[nodiscard]] std::optional<std::array<double, 3>> toSRGB(
        const std::array<double, 3>& components) const override
    {
        std::array<double, 3> result {};
        cmsDoTransform(transform_, components.data(), result.data(), 1);
        if (!std::all_of(
                result.begin(), result.end(), [](double value) { return std::isfinite(value); }))
            return std::nullopt;
        return result;
    }

private:
    cmsHTRANSFORM transform_;
};

} // namespace

std::shared_ptr<const ColorSpace> iccColorSpace(std::span<const std::byte> profile)
{
    const Profile device(
        cmsOpenProfileFromMem(profile.data(), static_cast<cmsUInt32Number>(profile.size())));
    if (!device || cmsGetColorSpace(device.get()) != cmsSigRgbData)
        return nullptr;
    const Profile srgb(cmsCreate_sRGBProfile());
    // Unoptimised: the short cuts are tuned for pictures and round to 16 bits.
    cmsHTRANSFORM transform = cmsCreateTransform(device.get(), TYPE_RGB_DBL, srgb.get(),
        TYPE_RGB_DBL, INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE | cmsFLAGS_NOOPTIMIZE);
    if (transform == nullptr)
        return nullptr;
    return std::make_shared<IccColorSpace>(transform);
}

} // namespace platform
