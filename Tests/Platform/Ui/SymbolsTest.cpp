#include "Symbols.h"

#include "PathData.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QPainter>

#include <cmath>

namespace platform {
namespace {

struct PathCase {
    const char* name;
    const char* data;
    QPointF end;
    QRectF bounds;
};

void PrintTo(const PathCase& test, std::ostream* out)
{
    *out << test.name;
}

class PathData : public ::testing::TestWithParam<PathCase> { };

TEST_P(PathData, IsReadIntoAPath)
{
    const auto& test = GetParam();
    const auto path = parsePathData(test.data);
    ASSERT_TRUE(path.has_value());
    EXPECT_NEAR(path->currentPosition().x(), test.end.x(), 1e-9);
    EXPECT_NEAR(path->currentPosition().y(), test.end.y(), 1e-9);
    const auto bounds = path->boundingRect();
    EXPECT_NEAR(bounds.left(), test.bounds.left(), 0.002);
    EXPECT_NEAR(bounds.top(), test.bounds.top(), 0.002);
    EXPECT_NEAR(bounds.right(), test.bounds.right(), 0.002);
    EXPECT_NEAR(bounds.bottom(), test.bounds.bottom(), 0.002);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Symbols, PathData, ::testing::Values(
    PathCase { "lines", "M1 2L3 4H7V9", { 7, 9 }, { 1, 2, 6, 7 } },
    PathCase { "repeated_groups", " M0,0 2,0 2,3\nL5 3 6 7 ", { 6, 7 }, { 0, 0, 6, 7 } },
    PathCase { "numbers_without_spaces", "M-1.5-2L.5-.25", { 0.5, -0.25 }, { -1.5, -2, 2, 1.75 } },
    PathCase { "closed", "M1 1H5V5Z", { 1, 1 }, { 1, 1, 4, 4 } },
    PathCase { "cubic", "M0 0C0 4 8 4 8 0", { 8, 0 }, { 0, 0, 8, 3 } },
    PathCase { "half_circle_clockwise", "M0 0A5 5 0 0 1 10 0", { 10, 0 }, { 0, -5, 10, 5 } },
    PathCase { "half_circle_counterclockwise", "M0 0A5 5 0 0 0 10 0", { 10, 0 }, { 0, 0, 10, 5 } },
    PathCase { "large_arc", "M5 0A5 5 0 1 1 0 -5", { 0, -5 }, { -5, -5, 10, 10 } },
    PathCase { "small_arc", "M5 0A5 5 0 0 0 0 -5", { 0, -5 }, { 0, -5, 5, 5 } },
    PathCase { "radius_too_small_grows", "M0 0A1 1 0 0 1 10 0", { 10, 0 }, { 0, -5, 10, 5 } },
    PathCase { "tilted_ellipse", "M0 -4A2 4 90 0 1 0 4", { 0, 4 }, { 0, -4, 8, 8 } },
    PathCase { "arc_without_radius", "M0 0A0 5 0 0 1 3 4", { 3, 4 }, { 0, 0, 3, 4 } }),
    [](const auto& test) { return test.param.name; });
// clang-format on

TEST(PathDataReader, RefusesWhatIsNoPath)
{
    for (const auto* data : { "", "  ", "L1 2", "M1", "M1 2L3", "M1 2Q3 4 5 6", "M1 2l3 4", "M1 x",
             "M1 2A5 5 0 0 1 10", "1 2", "M1e5 nan" })
        EXPECT_FALSE(parsePathData(data)) << data;
}

struct SpotCase {
    const char* name;
    Symbol symbol;
    QPointF spot;
    bool filled;
};

void PrintTo(const SpotCase& test, std::ostream* out)
{
    *out << test.name;
}

class SymbolSpot : public ::testing::TestWithParam<SpotCase> { };

TEST_P(SymbolSpot, IsInkOrGround)
{
    const auto& test = GetParam();
    EXPECT_EQ(symbolOutline(test.symbol).contains(test.spot), test.filled);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Symbols, SymbolSpot, ::testing::Values(
    SpotCase { "dropper_turned_bulb", Symbol::eyedropper, { 19.9, 4.1 }, true },
    SpotCase { "dropper_tip", Symbol::eyedropper, { 4.6, 19.4 }, true },
    SpotCase { "empty_dropper_tube", Symbol::eyedropper, { 9.2, 14.8 }, false },
    SpotCase { "half_dropper_tube", Symbol::eyedropperHalf, { 9.2, 14.8 }, true },
    SpotCase { "half_dropper_upper_tube", Symbol::eyedropperHalf, { 13, 11 }, false },
    SpotCase { "copy_front_edge", Symbol::copy, { 19.5, 14 }, true },
    SpotCase { "copy_front_inside", Symbol::copy, { 14, 14 }, false },
    SpotCase { "check_corner", Symbol::checkmark, { 9.6, 17.9 }, true },
    SpotCase { "seal_body", Symbol::seal, { 12, 5 }, true },
    SpotCase { "seal_check", Symbol::seal, { 10.8, 15.3 }, false },
    SpotCase { "palette_dot", Symbol::palette, { 8.7, 8.2 }, true },
    SpotCase { "palette_between", Symbol::palette, { 12, 12 }, false },
    SpotCase { "palette_fill_dot", Symbol::paletteFill, { 8.7, 8.2 }, false },
    SpotCase { "palette_fill_grown", Symbol::paletteFill, { 12, 2.4 }, true },
    SpotCase { "tray_arrow", Symbol::tray, { 12, 8 }, true },
    SpotCase { "power_gap", Symbol::power, { 9.9, 4.5 }, false },
    SpotCase { "ellipsis_dot", Symbol::ellipsis, { 18.8, 13.5 }, true },
    SpotCase { "slash", Symbol::stackSlash, { 12, 12.1 }, true },
    SpotCase { "stack_below_the_clearing", Symbol::stackSlash, { 8, 18.8 }, true },
    SpotCase { "cleared_stack", Symbol::stackSlash, { 7.6, 5.35 }, false },
    SpotCase { "trash_lid", Symbol::trash, { 4.5, 6.6 }, true }),
    [](const auto& test) { return test.param.name; });
// clang-format on

TEST(Symbols, KeepTheirOutlineSmoothAndOnTheGrid)
{
    for (int i = 0; i <= static_cast<int>(Symbol::trash); ++i) {
        const auto bounds = symbolOutline(static_cast<Symbol>(i)).boundingRect();
        EXPECT_TRUE(QRectF(0, 0, 24, 24).contains(bounds)) << i;
    }
    // The stroker must not leave a knob below the level bottom edge of the bin.
    EXPECT_NEAR(symbolOutline(Symbol::trash).boundingRect().bottom(), 20.7 + 0.875, 0.01);
}

TEST(Symbols, StayEvenInATranslucentColor)
{
    QImage image(48, 48, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintSymbol(painter, Symbol::eyedropperHalf, image.rect(), QColor(0, 0, 0, 128));
    painter.end();
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 48; ++x)
            EXPECT_GE(qGray(image.pixel(x, y)), 126) << x << ", " << y;
    }
}

TEST(Brand, MultipliesTheChips)
{
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintBrand(painter, image.rect(), 16);
    painter.end();
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_GT(image.pixelColor(32, 45).lightness(), 245);
    const auto single = image.pixelColor(32, 14);
    EXPECT_NEAR(single.red(), 0xF8, 3);
    EXPECT_LT(image.pixelColor(32, 50).lightness(), 110);
}

} // namespace
} // namespace platform
