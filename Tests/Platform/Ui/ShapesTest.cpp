#include "Shapes.h"

#include "Shadow.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

/// How far a point lies outside (positive) or inside the corner curve of side `size`, roughly.
double distanceFromCorner(QPointF fromCentre, double size)
{
    const auto x = std::abs(fromCentre.x()) / size;
    const auto y = std::abs(fromCentre.y()) / size;
    const auto value = std::pow(x, 2.6) + std::pow(y, 2.6) - 1;
    const auto slope = 2.6 * std::hypot(std::pow(x, 1.6), std::pow(y, 1.6));
    return value / slope * size;
}

TEST(SmoothRoundedRect, FollowsTheSuperellipseInEveryCorner)
{
    struct Case {
        QRectF rect;
        double radius;
        double size;
    };
    // The last radius is more than half the height allows.
    for (const auto& [rect, radius, size] : { Case { { 18, 29, 104, 104 }, 18, 22.5 },
             { { 0, 0, 90, 28 }, 8, 10 }, { { 0, 0, 412, 16 }, 12, 8 } }) {
        const auto path = smoothRoundedRect(rect, radius);
        const auto bounds = path.boundingRect();
        EXPECT_NEAR(bounds.left(), rect.left(), 1e-5);
        EXPECT_NEAR(bounds.bottom(), rect.bottom(), 1e-5);
        const auto inner = rect.adjusted(size, size, -size, -size);
        int inCorners = 0;
        for (int step = 0; step <= 2000; ++step) {
            const auto point = path.pointAtPercent(step / 2000.0);
            const QPointF nearest(std::clamp(point.x(), inner.left(), inner.right()),
                std::clamp(point.y(), inner.top(), inner.bottom()));
            const auto offset = point - nearest;
            if (std::abs(offset.x()) < 0.01 || std::abs(offset.y()) < 0.01)
                continue;
            ++inCorners;
            EXPECT_LT(std::abs(distanceFromCorner(offset, size)), 0.001 * size)
                << "at " << point.x() << ", " << point.y();
        }
        EXPECT_GT(inCorners, 100);
    }
}

TEST(SmoothRoundedRect, WithoutRadiusIsThePlainRectangle)
{
    QPainterPath plain;
    plain.addRect(1, 2, 30, 40);
    EXPECT_EQ(smoothRoundedRect({ 1, 2, 30, 40 }, 0), plain);
}

TEST(PaintPlate, KeepsItsEdgeInsideTheShape)
{
    QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintPlate(painter, { 10, 10, 20, 20 }, 0, Qt::red, Qt::black);
    painter.end();
    EXPECT_EQ(image.pixelColor(9, 20), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(10, 20), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(11, 20), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(29, 20), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(30, 20), QColor(Qt::white));
}

TEST(PaintPlate, HasSharpSidesAtFractionalScales)
{
    for (const auto scale : { 1.25, 1.5 }) {
        QImage image(QSize(100, 100), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        QPainter painter(&image);
        paintPlate(painter, { 11, 13, 30, 30 }, 8, Qt::red, Qt::black);
        painter.end();
        const auto middle = static_cast<int>(28 * scale);
        for (int i = 0; i < image.width(); ++i) {
            for (const auto& color : { image.pixelColor(middle, i), image.pixelColor(i, middle) })
                EXPECT_TRUE(color == QColor(Qt::white) || color == QColor(Qt::red)
                    || color == QColor(Qt::black))
                    << scale << " at " << i;
        }
    }
}

TEST(PaintChecker, AlternatesAndStaysInside)
{
    QImage image(12, 12, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::blue);
    QPainter painter(&image);
    paintChecker(painter, { 1, 1, 9, 9 }, Qt::white, Qt::black, 4);
    painter.end();
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(5, 1), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(1, 5), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(9, 9), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(10, 5), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(0, 1), QColor(Qt::blue));
}

TEST(FillSharp, DrawsALineOfWholePixelsWhereverItLies)
{
    for (const auto& [scale, thickness] : { std::pair(1.0, 1), std::pair(1.25, 1),
             std::pair(1.5, 1), std::pair(2.0, 2), std::pair(3.0, 3) })
        for (int y = 0; y < 9; ++y) {
            QImage image(QSize(20, 20) * scale, QImage::Format_ARGB32_Premultiplied);
            image.setDevicePixelRatio(scale);
            image.fill(Qt::white);
            QPainter painter(&image);
            fillSharp(painter, QRectF(0, y, 20, 1), Qt::black);
            painter.end();
            int dark = 0;
            for (int row = 0; row < image.height(); ++row) {
                const auto color = image.pixelColor(3, row);
                EXPECT_TRUE(color == QColor(Qt::white) || color == QColor(Qt::black)) << y;
                dark += color == QColor(Qt::black);
            }
            EXPECT_EQ(dark, thickness) << scale << " at " << y;
        }
}

/// The share of a Gaussian of width 1 below `x`.
double coverage(double x)
{
    return 0.5 * std::erfc(-x / std::sqrt(2.0));
}

TEST(Shadow, FadesLikeAGaussianAcrossAStraightEdge)
{
    // The wider one is sampled more coarsely.
    for (const double sigma : { 7.5, 20.0 }) {
        QImage image(400, 400, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        Shadow shadow(18, sigma);
        shadow.paint(painter, QRectF(100, 100, 204, 204), QColor(0, 0, 0, 200));
        painter.end();
        for (int x = 100 - shadow.reach(); x < 130; ++x) {
            const auto expected = 255 - 200 * coverage((x + 0.5 - 100) / sigma);
            EXPECT_NEAR(image.pixelColor(x, 202).red(), expected, 3) << sigma << " at " << x;
        }
        EXPECT_EQ(image.pixelColor(100 - shadow.reach() - 1, 202), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(202, 90), image.pixelColor(202, 313));
    }
}

TEST(Shadow, TakesANewColorAndSize)
{
    QImage image(60, 60, QImage::Format_ARGB32_Premultiplied);
    Shadow shadow(4, 3);
    for (const auto& [size, color] : { std::pair(20, QColor(Qt::red)),
             std::pair(20, QColor(Qt::blue)), std::pair(30, QColor(Qt::blue)) }) {
        image.fill(Qt::transparent);
        QPainter painter(&image);
        shadow.paint(painter, QRectF(20, 20, size, size), color);
        painter.end();
        EXPECT_EQ(image.pixelColor(30, 30).toRgb().hue(), color.hue());
        EXPECT_GT(image.pixelColor(20 + size - 1, 30).alpha(), 100);
        EXPECT_LT(image.pixelColor(20 + size, 30).alpha(), 127);
    }
}

} // namespace
} // namespace platform
