#include "ColorNamer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>

namespace tintwell {
namespace {

struct Row {
    double lightness, chroma, hue;
    std::string name;
};

std::ostream& operator<<(std::ostream& out, const Row& row)
{
    return out << row.lightness << ' ' << row.chroma << ' ' << row.hue;
}

/// The last double that a bound excludes.
double below(double bound)
{
    return std::nextafter(bound, 0);
}

TEST(ColorNamer, NamesNeutralsByLightnessAlone)
{
    for (const auto& row : { Row { 0, 0, 0, "Near Black" },
             Row { below(0.16), 0.02, 200, "Near Black" }, Row { 0.16, 0.02, 200, "Charcoal" },
             Row { below(0.38), 0.02, 0, "Charcoal" }, Row { 0.38, 0.02, 0, "Neutral Gray" },
             Row { below(0.72), 0, 0, "Neutral Gray" }, Row { 0.72, below(0.025), 0, "Soft Gray" },
             Row { below(0.92), 0, 0, "Soft Gray" }, Row { 0.92, 0, 0, "Near White" },
             Row { 1, 0.02, 10, "Near White" }, Row { std::nan(""), 0, 0, "Near White" } })
        EXPECT_EQ(ColorNamer().name(OKLCH(row.lightness, row.chroma, row.hue)), row.name) << row;
}

TEST(ColorNamer, PicksTheFamilyByHue)
{
    struct Family {
        double from;
        std::string name;
    };
    const std::vector<Family> families { { 0, "Crimson" }, { 15, "Coral" }, { 42, "Amber" },
        { 68, "Gold" }, { 100, "Lime" }, { 132, "Green" }, { 165, "Mint" }, { 198, "Cyan" },
        { 225, "Azure" }, { 252, "Blue" }, { 278, "Violet" }, { 310, "Magenta" },
        { 345, "Crimson" } };
    for (std::size_t i = 0; i < families.size(); ++i) {
        const double end = i + 1 < families.size() ? families[i + 1].from : 360;
        EXPECT_EQ(ColorNamer().name(OKLCH(0.5, 0.1, families[i].from)), families[i].name);
        EXPECT_EQ(ColorNamer().name(OKLCH(0.5, 0.1, below(end))), families[i].name);
    }
    for (const double hue : { -1e-20, std::numeric_limits<double>::infinity(), std::nan("") })
        EXPECT_EQ(ColorNamer().name(OKLCH(0.5, 0.1, hue)), "Color") << hue;
}

TEST(ColorNamer, LightnessDecidesTheModifierBeforeChroma)
{
    for (const auto& row : { Row { below(0.3), 0.25, 10, "Deep Crimson" },
             Row { 0.3, 0.25, 10, "Vivid Crimson" }, Row { 0.3, below(0.2), 10, "Crimson" },
             Row { below(0.82), 0.2, 30, "Vivid Coral" }, Row { 0.82, 0.3, 170, "Pale Mint" },
             Row { 0.68, 0.1, 230, "Soft Azure" }, Row { below(0.68), 0.1, 290, "Violet" },
             Row { 0.5, 0.025, 290, "Violet" }, Row { 0.7, 0.1, std::nan(""), "Soft Color" } })
        EXPECT_EQ(ColorNamer().name(OKLCH(row.lightness, row.chroma, row.hue)), row.name) << row;
}

} // namespace
} // namespace tintwell
