#include "Symbols.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QPainter>

namespace platform {
namespace {

TEST(Symbols, HaveInkAndGroundWhereTheyShould)
{
    struct Spot {
        const char* name;
        Symbol symbol;
        QPointF at;
        bool filled;
    };
    // clang-format off
    for (const auto& [name, symbol, at, filled] : {
        Spot { "dropper_turned_bulb", Symbol::eyedropper, { 19.9, 4.1 }, true },
        Spot { "empty_dropper_tube", Symbol::eyedropper, { 9.2, 14.8 }, false },
        Spot { "half_dropper_tube", Symbol::eyedropperHalf, { 9.2, 14.8 }, true },
        Spot { "half_dropper_upper_tube", Symbol::eyedropperHalf, { 13, 11 }, false },
        Spot { "copy_front_edge", Symbol::copy, { 19.5, 14 }, true },
        Spot { "check_corner", Symbol::checkmark, { 9.6, 17.9 }, true },
        Spot { "seal_body", Symbol::seal, { 12, 5 }, true },
        Spot { "seal_check", Symbol::seal, { 10.8, 15.3 }, false },
        Spot { "palette_dot", Symbol::palette, { 8.7, 8.2 }, true },
        Spot { "palette_fill_dot", Symbol::paletteFill, { 8.7, 8.2 }, false },
        Spot { "palette_fill_grown", Symbol::paletteFill, { 12, 2.4 }, true },
        Spot { "tray_arrow", Symbol::tray, { 12, 8 }, true },
        Spot { "power_gap", Symbol::power, { 9.9, 4.5 }, false },
        Spot { "ellipsis_dot", Symbol::ellipsis, { 18.8, 13.5 }, true },
        Spot { "slash", Symbol::stackSlash, { 12, 12.1 }, true },
        Spot { "cleared_stack", Symbol::stackSlash, { 7.6, 5.35 }, false },
        Spot { "trash_lid", Symbol::trash, { 4.5, 6.6 }, true } })
        EXPECT_EQ(symbolOutline(symbol).contains(at), filled) << name;
    // clang-format on
}

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

} // namespace
} // namespace platform
