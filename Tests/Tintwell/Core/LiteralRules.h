// The colour rules once more, transcribed word by word with no thought for speed: what the engine
// is compared with, and where the benchmark's yardstick takes its work from.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

namespace literal {

struct RGB {
    double red, green, blue;
};

struct LCH {
    double lightness, chroma, hue;
};

constexpr double pi = 3.141592653589793;

inline double decode(double c)
{
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

inline double encode(double v)
{
    return v <= 0.0031308 ? 12.92 * v : 1.055 * std::pow(v, 0.4166666666666667) - 0.055;
}

inline double clamp01(double v)
{
    return v <= 0 ? 0 : v > 1 ? 1 : v;
}

inline double wrap(double hue)
{
    const double remainder = std::fmod(hue, 360);
    return remainder < 0 ? remainder + 360 : remainder;
}

inline LCH make(double lightness, double chroma, double hue)
{
    return { clamp01(lightness), !(chroma >= 0) ? 0 : chroma, wrap(hue) };
}

inline LCH fromRGB(const RGB& color)
{
    const double r = decode(color.red), g = decode(color.green), b = decode(color.blue);
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    const double L = 0.2104542553 * l + 0.793617785 * m - 0.0040720468 * s;
    const double A = 1.9779984951 * l - 2.428592205 * m + 0.4505937099 * s;
    const double B = 0.0259040371 * l + 0.7827717662 * m - 0.808675766 * s;
    const double chroma = std::hypot(A, B);
    return make(L, chroma, chroma < 0.000001 ? 0 : std::atan2(B, A) * 180 / pi);
}

inline RGB linearRGB(const LCH& color)
{
    const double radians = color.hue * pi / 180;
    const double a = color.chroma * std::cos(radians), b = color.chroma * std::sin(radians);
    const double l_ = color.lightness + 0.3963377774 * a + 0.2158037573 * b;
    const double m_ = color.lightness - 0.1055613458 * a - 0.0638541728 * b;
    const double s_ = color.lightness - 0.0894841775 * a - 1.291485548 * b;
    const double l = l_ * l_ * l_, m = m_ * m_ * m_, s = s_ * s_ * s_;
    return { 4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
        -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
        -0.0041960863 * l - 0.7034186147 * m + 1.707614701 * s };
}

inline RGB unclipped(const LCH& color)
{
    const RGB linear = linearRGB(color);
    return { clamp01(encode(linear.red)), clamp01(encode(linear.green)),
        clamp01(encode(linear.blue)) };
}

inline bool isInside(const RGB& linear)
{
    return -0.000001 <= linear.red && linear.red <= 1.000001 && -0.000001 <= linear.green
        && linear.green <= 1.000001 && -0.000001 <= linear.blue && linear.blue <= 1.000001;
}

inline RGB toRGB(const LCH& color)
{
    if (isInside(linearRGB(color)))
        return unclipped(color);
    const double lightness = clamp01(color.lightness), hue = wrap(color.hue);
    RGB result = unclipped({ lightness, 0, hue });
    double low = 0, high = color.chroma;
    for (int step = 0; step < 24; ++step) {
        const double mid = (high + low) * 0.5;
        const LCH candidate { lightness, std::max(mid, 0.0), hue };
        if (isInside(linearRGB(candidate))) {
            result = unclipped(candidate);
            low = mid;
        } else {
            high = mid;
        }
    }
    return result;
}

inline double luminance(const RGB& color)
{
    return (decode(color.green) * 0.7152 + decode(color.red) * 0.2126)
        + decode(color.blue) * 0.0722;
}

inline double contrast(const RGB& a, const RGB& b)
{
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

inline RGB readableInk(const RGB& fill)
{
    const RGB dark { 0.035, 0.035, 0.04 }, light { 0.985, 0.985, 0.99 };
    return contrast(fill, dark) >= contrast(fill, light) ? dark : light;
}

inline RGB ensureContrast(const RGB& color, const RGB& background, double minimum)
{
    if (!(contrast(color, background) < minimum))
        return color;
    const bool onDark = luminance(background) < 0.35;
    auto [l, c, h] = fromRGB(color);
    for (int attempt = 0; attempt < 32; ++attempt) {
        l = clamp01(l + (onDark ? 0.025 : -0.025));
        const RGB candidate = toRGB(make(l, c, h));
        if (contrast(candidate, background) >= minimum)
            return candidate;
    }
    return onDark ? RGB { 1, 1, 1 } : RGB { 0, 0, 0 };
}

inline RGB ensureReadableFill(const RGB& fill, double minimum)
{
    if (contrast(fill, readableInk(fill)) >= minimum)
        return fill;
    const double step = luminance(fill) > 0.18 ? -0.025 : 0.025;
    auto [l, c, h] = fromRGB(fill);
    for (int attempt = 0; attempt < 20; ++attempt) {
        l = clamp01(l + step);
        const RGB candidate = toRGB(make(l, c, h));
        if (contrast(candidate, readableInk(candidate)) >= minimum)
            return candidate;
    }
    return fill;
}

/// The points of the 31 section colours, in display order.
inline std::vector<LCH> sectionPoints(const LCH& base)
{
    const auto& [L, C, H] = base;
    std::vector<LCH> points;
    for (const double offset : { 0, 180, -30, 0, 30, 0, 150, 210, 0, 120, 240, 0, 60, 180, 240 })
        points.push_back(make(L, C, H + offset));
    const double ramp[][2]
        = { { 0.94, 0.22 }, { 0.82, 0.48 }, { L, 1.0 }, { 0.38, 0.9 }, { 0.22, 0.66 } };
    for (const auto& [lightness, factor] : ramp)
        points.push_back(make(lightness, std::max(C * factor, 0.018), wrap(H)));
    const double tones[][2] = { { 0.97, 0.10 }, { 0.92, 0.22 }, { 0.85, 0.38 }, { 0.77, 0.56 },
        { 0.68, 0.78 }, { 0.59, 1.00 }, { 0.50, 0.98 }, { 0.41, 0.88 }, { 0.31, 0.72 },
        { 0.22, 0.56 }, { 0.15, 0.42 } };
    for (const auto& [lightness, factor] : tones)
        points.push_back(make(lightness, std::max(C * factor, 0.012), wrap(H)));
    return points;
}

/// The points of a theme's roles before any repair, without On primary.
inline std::vector<LCH> themePoints(const LCH& base, bool light)
{
    const auto& [L, C, h] = base;
    const double H = wrap(h), S = std::max(std::min(C, 0.18), 0.11);
    return {
        make(light ? 0.98 : 0.115, std::min(0.07 * C, 0.014), H),
        make(light ? 0.935 : 0.18, std::min(0.11 * C, 0.02), H),
        make(light ? 0.19 : 0.95, std::min(0.18 * C, 0.035), H),
        make(light ? std::min(L, 0.58) : std::max(L, 0.7), std::max(C, 0.1), H),
        make(light ? 0.52 : 0.72, std::max(0.8 * C, 0.08), h + 60),
        make(light ? 0.5 : 0.74, std::max(0.9 * C, 0.09), h + 180),
        make(light ? 0.48 : 0.72, S, 145),
        make(light ? 0.47 : 0.78, S, 80),
        make(light ? 0.48 : 0.72, S, 28),
    };
}

/// The ten roles.
inline std::vector<RGB> theme(const LCH& base, bool light)
{
    std::vector<RGB> roles;
    for (const LCH& point : themePoints(base, light))
        roles.push_back(toRGB(point));
    roles[2] = ensureContrast(roles[2], roles[0], 7.0);
    for (std::size_t fill = 3; fill < roles.size(); ++fill)
        roles[fill] = ensureReadableFill(roles[fill], 4.5);
    roles.insert(roles.begin() + 4, readableInk(roles[3]));
    return roles;
}

/// One of `perChannel` cubed colours to compare over, evenly spread.
inline RGB gridColor(int index, int perChannel)
{
    const auto component = [perChannel](int i) { return i % perChannel / (perChannel - 1.0); };
    const int green = index / perChannel;
    const int blue = green / perChannel;
    return { component(index), component(green), component(blue) };
}

} // namespace literal
