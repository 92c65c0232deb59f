#include "OKLCH.h"

#include "SRGBTransfer.h"

#include <cmath>

namespace tintwell {

namespace {

constexpr double pi = 3.141592653589793;

struct LinearRGB {
    double red = 0;
    double green = 0;
    double blue = 0;
};

double cubed(double value)
{
    return value * value * value;
}

double wrappedDegrees(double degrees)
{
    const double remainder = std::fmod(degrees, 360);
    return remainder < 0 ? remainder + 360 : remainder;
}

/// The colours of one lightness and hue, from grey outwards. The hue's sine and cosine are taken
/// once for all of them.
class HueRay {
public:
    HueRay(double lightness, double hueDegrees)
        : lightness_(lightness)
        , cosine_(std::cos(hueDegrees * pi / 180))
        , sine_(std::sin(hueDegrees * pi / 180))
    {
    }

    /// Linear sRGB, possibly outside 0…1. The coefficients are Oklab's for linear sRGB.
    [[nodiscard]] LinearRGB at(double chroma) const
    {
        const double a = chroma * cosine_;
        const double b = chroma * sine_;
        const double l = cubed(lightness_ + 0.3963377774 * a + 0.2158037573 * b);
        const double m = cubed(lightness_ - 0.1055613458 * a - 0.0638541728 * b);
        const double s = cubed(lightness_ - 0.0894841775 * a - 1.291485548 * b);
        return {
            .red = 4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
            .green = -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
            .blue = -0.0041960863 * l - 0.7034186147 * m + 1.707614701 * s,
        };
    }

private:
    double lightness_;
    double cosine_;
    double sine_;
};

bool isInsideGamut(const LinearRGB& color)
{
    const auto isInside = [](double value) { return value >= -0.000001 && value <= 1.000001; };
    return isInside(color.red) && isInside(color.green) && isInside(color.blue);
}

RGBAColor encoded(const LinearRGB& color, double alpha)
{
    return { encodeSRGB(color.red), encodeSRGB(color.green), encodeSRGB(color.blue), alpha };
}

} // namespace

OKLCH::OKLCH(double lightnessValue, double chromaValue, double hueDegrees)
    : lightness(lightnessValue)
    , chroma(chromaValue >= 0 ? chromaValue : 0)
    , hue(wrappedDegrees(hueDegrees))
{
    if (lightnessValue <= 0)
        lightness = 0;
    else if (lightnessValue > 1)
        lightness = 1;
}

OKLCH::OKLCH(const RGBAColor& color)
{
    const double red = decodeSRGB(color.red);
    const double green = decodeSRGB(color.green);
    const double blue = decodeSRGB(color.blue);

    const double l = std::cbrt(0.4122214708 * red + 0.5363325363 * green + 0.0514459929 * blue);
    const double m = std::cbrt(0.2119034982 * red + 0.6806995451 * green + 0.1073969566 * blue);
    const double s = std::cbrt(0.0883024619 * red + 0.2817188376 * green + 0.6299787005 * blue);

    const double a = 1.9779984951 * l - 2.428592205 * m + 0.4505937099 * s;
    const double b = 0.0259040371 * l + 0.7827717662 * m - 0.808675766 * s;
    const double radius = std::hypot(a, b);
    // Below this chroma the angle is rounding noise.
    const double degrees = radius < 0.000001 ? 0 : std::atan2(b, a) * 180 / pi;

    *this = OKLCH(0.2104542553 * l + 0.793617785 * m - 0.0040720468 * s, radius, degrees);
}

RGBAColor OKLCH::toSRGB(double alpha) const
{
    // The fields may have been set since they were normalised.
    const OKLCH value(lightness, chroma, hue);
    const HueRay ray(value.lightness, value.hue);
    if (const auto linear = ray.at(value.chroma); isInsideGamut(linear))
        return encoded(linear, alpha);

    // `low` stays a chroma that fits; 0 is the grey of this lightness, whether it fits or not.
    double low = 0;
    double high = value.chroma;
    for (int step = 0; step < 24; ++step) {
        const double middle = (high + low) * 0.5;
        const bool fits = isInsideGamut(ray.at(middle));
        low = fits ? middle : low;
        high = fits ? high : middle;
    }
    return encoded(ray.at(low), alpha);
}

} // namespace tintwell
