#include "LoupePainter.h"

#include <gtest/gtest.h>
#include <QImage>

#include <cmath>

namespace platform {
namespace {

constexpr int sideSpace = 900;

/// A desktop on which every pixel differs from its neighbours.
QImage desktop()
{
    QImage image(sideSpace, sideSpace, QImage::Format_RGB32);
    for (int y = 0; y < sideSpace; ++y)
        for (int x = 0; x < sideSpace; ++x)
            image.setPixel(x, y, qRgb(x * 37 & 255, y * 53 & 255, (x + y) & 255));
    return image;
}

class LoupePainterTest : public ::testing::TestWithParam<double> {
protected:
    void paint(QPoint pixel, Appearance appearance = Appearance::light)
    {
        const LoupeMonitor monitor { frozen.rect(), GetParam() };
        loupe = LoupePainter(themeOf(appearance))
                    .paint(frozen, pixel, monitor, { "#102030", "Violet" });
    }

    /// What the screen shows at a device pixel of the desktop.
    QRgb shown(QPoint at) const { return loupe.image.pixel(at - loupe.topLeft); }

    QPoint beside(QPoint pixel, double x, double y) const
    {
        return pixel + QPoint(int(std::lround(x * GetParam())), int(std::lround(y * GetParam())));
    }

    const QImage frozen = desktop();
    LoupePicture loupe;
};

TEST_P(LoupePainterTest, MagnifiesTheExactPixelsAroundThePointer)
{
    const QPoint pixel(451, 430);
    paint(pixel);
    const int cell = LoupePainter::cellSize(GetParam());
    int seen = 0;
    for (int row = -5; row <= 5; ++row) {
        for (int column = -5; column <= 5; ++column) {
            if (std::hypot(std::abs(row) + 0.5, std::abs(column) + 0.5) * 12 > 64)
                continue;
            ++seen;
            EXPECT_EQ(shown(pixel + QPoint(column * cell, row * cell)),
                frozen.pixel(pixel + QPoint(column, row)))
                << "column " << column << ", row " << row;
        }
    }
    EXPECT_GT(seen, 60);
}

TEST_P(LoupePainterTest, ShowsThePickedColourInTheRing)
{
    const QPoint pixel(451, 430);
    paint(pixel);
    for (const auto& [x, y] : { std::pair(1, 0), { -1, 0 }, { 0, 1 }, { 0, -1 } }) {
        EXPECT_EQ(shown(beside(pixel, 71.5 * x, 71.5 * y)), frozen.pixel(pixel));
        // At scale 1 the rim is thinner than two pixels.
        EXPECT_GT(QColor(shown(beside(pixel, 76.25 * x, 76.25 * y))).lightness(), 150);
    }
}

TEST_P(LoupePainterTest, LeavesTheRestOfTheDesktopAlone)
{
    paint({ 451, 430 });
    const QRect area(loupe.topLeft, loupe.image.size());
    for (const QPoint corner : { area.topLeft(), area.topRight(), area.bottomLeft() })
        EXPECT_EQ(shown(corner), frozen.pixel(corner));
    for (const QPoint pixel : { QPoint(0, 0), QPoint(sideSpace - 1, sideSpace - 1) }) {
        paint(pixel);
        EXPECT_TRUE(frozen.rect().contains(QRect(loupe.topLeft, loupe.image.size())));
        EXPECT_EQ(shown(pixel), frozen.pixel(pixel));
    }
}

TEST_P(LoupePainterTest, KeepsTheLabelOnTheMonitor)
{
    constexpr double nearEdge = 95; // of the label, above or below the pointer
    const struct {
        const char* name;
        QPoint pixel;
        double labelX;
        double labelY;
    } rows[] = {
        { "below", { 451, 430 }, 0, nearEdge },
        { "above at the bottom", { 451, sideSpace - 60 }, 0, -nearEdge },
        { "pushed right at the left", { 0, 430 }, 12, nearEdge },
        { "pushed left at the right", { sideSpace - 1, 430 }, -12, nearEdge },
    };
    for (const auto& row : rows) {
        for (const auto appearance : { Appearance::light, Appearance::dark }) {
            SCOPED_TRACE(row.name);
            paint(row.pixel, appearance);
            const QColor at = shown(beside(row.pixel, row.labelX, row.labelY));
            // The loupe's shadow falls on the label.
            const QColor plain = themeOf(appearance).menuBackground;
            EXPECT_NEAR(at.lightness(), plain.lightness(), 30);
            EXPECT_LT(at.hslSaturation(), 20) << "the desktop is colourful, the label is not";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, LoupePainterTest, ::testing::Values(1, 1.25, 1.5, 2));

} // namespace
} // namespace platform
