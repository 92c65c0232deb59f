// One whole palette, beside the bare arithmetic that it cannot do without.
#include "LiteralRules.h"
#include "PaletteGenerator.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

namespace {

using namespace tintwell;

/// Sources as a user picks them: any 8-bit colour. Many, so that no branch is learned by heart.
std::vector<RGBAColor> sources()
{
    std::mt19937 random(20); // the same colours in every run
    std::uniform_int_distribution<int> byte(0, 255);
    std::vector<RGBAColor> list;
    for (int i = 0; i < 4096; ++i)
        list.emplace_back(byte(random) / 255.0, byte(random) / 255.0, byte(random) / 255.0, 1);
    return list;
}

/// Gamut fit by hand: trigonometry once, every term in a scalar, the curve only at the end.
literal::RGB fitByHand(double lightness, double chroma, double hueDegrees)
{
    const double radians = hueDegrees * 3.141592653589793 / 180;
    const double cosine = std::cos(radians);
    const double sine = std::sin(radians);
    double red = 0;
    double green = 0;
    double blue = 0;
    double low = 0;
    double high = chroma;
    double middle = chroma;
    for (int step = 0; step < 25; ++step) {
        const double a = middle * cosine;
        const double b = middle * sine;
        const double l1 = lightness + 0.3963377774 * a + 0.2158037573 * b;
        const double m1 = lightness - 0.1055613458 * a - 0.0638541728 * b;
        const double s1 = lightness - 0.0894841775 * a - 1.291485548 * b;
        const double l = l1 * l1 * l1;
        const double m = m1 * m1 * m1;
        const double s = s1 * s1 * s1;
        const double r = 4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s;
        const double g = -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s;
        const double v = -0.0041960863 * l - 0.7034186147 * m + 1.707614701 * s;
        if (r >= -0.000001 && r <= 1.000001 && g >= -0.000001 && g <= 1.000001 && v >= -0.000001
            && v <= 1.000001) {
            red = r;
            green = g;
            blue = v;
            low = middle;
            if (step == 0)
                break;
        } else {
            high = middle;
        }
        middle = (high + low) * 0.5;
    }
    return { literal::clamp01(literal::encode(red)), literal::clamp01(literal::encode(green)),
        literal::clamp01(literal::encode(blue)) };
}

/// The points of every colour of a palette, the source's own coordinates among them.
std::vector<std::vector<literal::LCH>> pointsOfAll(const std::vector<RGBAColor>& colors)
{
    std::vector<std::vector<literal::LCH>> all;
    for (const auto& color : colors) {
        const auto base = literal::fromRGB({ color.red, color.green, color.blue });
        auto points = literal::sectionPoints(base);
        for (const bool light : { true, false }) {
            const auto theme = literal::themePoints(base, light);
            points.insert(points.end(), theme.begin(), theme.end());
        }
        all.push_back(std::move(points));
    }
    return all;
}

void generatePalette(benchmark::State& state)
{
    const auto colors = sources();
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(PaletteGenerator().generate(colors[i++ % colors.size()]));
}

/// The same fits and the luminances of the roles: no repair, no names, texts or records.
void scalarLoopByHand(benchmark::State& state)
{
    constexpr std::size_t sectionCount = 31;
    const auto colors = sources();
    const auto points = pointsOfAll(colors);
    std::size_t i = 0;
    for (auto _ : state) {
        const auto& color = colors[i % colors.size()];
        benchmark::DoNotOptimize(literal::fromRGB({ color.red, color.green, color.blue }));
        const auto& row = points[i++ % points.size()];
        for (std::size_t k = 0; k < row.size(); ++k) {
            const auto fitted = fitByHand(row[k].lightness, row[k].chroma, row[k].hue);
            benchmark::DoNotOptimize(fitted);
            if (k >= sectionCount)
                benchmark::DoNotOptimize(literal::luminance(fitted));
        }
    }
}

/// Every rule as it is worded, the curve in every step of a search.
void literalRules(benchmark::State& state)
{
    const auto colors = sources();
    std::size_t i = 0;
    for (auto _ : state) {
        const auto& color = colors[i++ % colors.size()];
        const auto base = literal::fromRGB({ color.red, color.green, color.blue });
        for (const auto& point : literal::sectionPoints(base))
            benchmark::DoNotOptimize(literal::toRGB(point));
        benchmark::DoNotOptimize(literal::theme(base, true));
        benchmark::DoNotOptimize(literal::theme(base, false));
    }
}

void fitOutsideColor(benchmark::State& state)
{
    double hue = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(OKLCH(0.7, 0.35, hue).toSRGB(/*alpha=*/1));
        hue += 7.3;
    }
}

BENCHMARK(generatePalette);
BENCHMARK(scalarLoopByHand);
BENCHMARK(literalRules);
BENCHMARK(fitOutsideColor);

} // namespace

BENCHMARK_MAIN();
