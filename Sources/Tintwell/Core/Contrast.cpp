#include "Contrast.h"

#include "OKLCH.h"

#include <algorithm>
#include <optional>

namespace tintwell {

namespace {

constexpr double lightnessStep = 0.025;

double inkLuminance(Ink ink)
{
    static const double dark = darkInk.relativeLuminance();
    static const double light = lightInk.relativeLuminance();
    return ink == Ink::dark ? dark : light;
}

Ink betterInk(double fillLuminance)
{
    return readableInk(fillLuminance, inkLuminance(Ink::dark), inkLuminance(Ink::light));
}

/// How well the better ink reads on a fill of that luminance.
double bestInkContrast(double fillLuminance)
{
    return contrastRatio(fillLuminance, inkLuminance(betterInk(fillLuminance)));
}

/// The first colour that `passes`, in at most `count` steps of lightness; hue and chroma stay.
/// At black or white the walk stands still.
template <typename Predicate>
std::optional<RGBAColor> walkLightness(
    const RGBAColor& start, double step, int count, const Predicate& passes)
{
    OKLCH candidate(start);
    for (int i = 0; i < count; ++i) {
        candidate = OKLCH(candidate.lightness + step, candidate.chroma, candidate.hue);
        const auto color = candidate.toSRGB(/*alpha=*/1);
        if (passes(color.relativeLuminance()))
            return color;
    }
    return std::nullopt;
}

} // namespace

double contrastRatio(double luminanceA, double luminanceB)
{
    return (std::max(luminanceA, luminanceB) + 0.05) / (std::min(luminanceA, luminanceB) + 0.05);
}

double contrastRatio(const RGBAColor& a, const RGBAColor& b)
{
    return contrastRatio(a.relativeLuminance(), b.relativeLuminance());
}

Ink readableInk(double fill, double dark, double light)
{
    return contrastRatio(fill, dark) >= contrastRatio(fill, light) ? Ink::dark : Ink::light;
}

RGBAColor readableInkOn(const RGBAColor& fill)
{
    return betterInk(fill.relativeLuminance()) == Ink::dark ? darkInk : lightInk;
}

RGBAColor ensureContrast(const RGBAColor& foreground, const RGBAColor& background, double minimum)
{
    const double backgroundLuminance = background.relativeLuminance();
    if (!(contrastRatio(foreground.relativeLuminance(), backgroundLuminance) < minimum))
        return foreground;

    const bool lightens = backgroundLuminance < 0.35;
    const auto repaired = walkLightness(foreground, lightens ? lightnessStep : -lightnessStep, 32,
        [&](double luminance) { return contrastRatio(luminance, backgroundLuminance) >= minimum; });
    return repaired.value_or(lightens ? RGBAColor(1, 1, 1, 1) : RGBAColor(0, 0, 0, 1));
}

RGBAColor ensureReadableFill(const RGBAColor& fill, double minimum)
{
    const auto isReadable
        = [minimum](double luminance) { return bestInkContrast(luminance) >= minimum; };
    const double luminance = fill.relativeLuminance();
    if (isReadable(luminance))
        return fill;
    // The direction holds for the whole walk, even when a candidate crosses this luminance.
    const double step = luminance > 0.18 ? -lightnessStep : lightnessStep;
    return walkLightness(fill, step, 20, isReadable).value_or(fill);
}

} // namespace tintwell
