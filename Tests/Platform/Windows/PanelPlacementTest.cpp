#include "PanelPlacement.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace platform {
namespace {

constexpr QRect wholeScreen { 0, 0, 1280, 800 };
constexpr QRect secondScreen { 1280, 0, 1280, 800 };
constexpr QSize panelSize { 448, 680 };
constexpr int gap = 8;

struct Case {
    std::string name;
    QRect anchor;
    QRect screen;
    QRect available;
    QRect frame;
    QPoint direction;
};

void PrintTo(const Case& row, std::ostream* out)
{
    *out << row.name;
}

class PanelPlacementTest : public testing::TestWithParam<Case> { };

TEST_P(PanelPlacementTest, StandsBesideTheItemInsideTheScreen)
{
    const auto& row = GetParam();
    const auto placed = placePanel(row.anchor, panelSize, gap, row.screen, row.available);
    const auto text = [](const QRect& rect) {
        return std::to_string(rect.x()) + "," + std::to_string(rect.y()) + " "
            + std::to_string(rect.width()) + "x" + std::to_string(rect.height());
    };
    EXPECT_EQ(text(placed.frame), text(row.frame));
    EXPECT_EQ(placed.direction, row.direction);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Places, PanelPlacementTest, testing::Values(
    Case { "below an item in the middle of a bar at the top",
        { 629, 1, 22, 22 }, wholeScreen, { 0, 24, 1280, 776 }, { 416, 32, 448, 680 }, { 0, 1 } },
    Case { "at the right edge it is moved in",
        { 1257, 1, 22, 22 }, wholeScreen, { 0, 24, 1280, 776 }, { 824, 32, 448, 680 }, { 0, 1 } },
    Case { "at the left edge too",
        { 1, 1, 22, 22 }, wholeScreen, { 0, 24, 1280, 776 }, { 8, 32, 448, 680 }, { 0, 1 } },
    Case { "above a bar at the bottom, from the pointer alone",
        { 640, 785, 1, 1 }, wholeScreen, { 0, 0, 1280, 768 }, { 416, 80, 448, 680 }, { 0, -1 } },
    Case { "a bar that reserves no room is passed by the item's height",
        { 629, 777, 22, 22 }, wholeScreen, wholeScreen, { 416, 89, 448, 680 }, { 0, -1 } },
    Case { "right of a bar at the left",
        { 5, 700, 22, 22 }, wholeScreen, { 32, 0, 1248, 800 }, { 40, 112, 448, 680 }, { 1, 0 } },
    Case { "left of a bar at the right",
        { 1255, 20, 22, 22 }, wholeScreen, { 0, 0, 1248, 800 }, { 792, 8, 448, 680 }, { -1, 0 } },
    Case { "on the screen of the item",
        { 2537, 1, 22, 22 }, secondScreen, { 1280, 24, 1280, 776 }, { 2104, 32, 448, 680 }, { 0, 1 } },
    Case { "an item in the middle of a low screen pushes the panel no further than the edge",
        { 300, 360, 22, 22 }, { 0, 0, 1280, 720 }, { 0, 0, 1280, 720 }, { 87, 8, 448, 680 }, { 0, -1 } },
    Case { "cut to a screen that is too small",
        { 397, 1, 22, 22 }, { 0, 0, 420, 500 }, { 0, 24, 420, 476 }, { 8, 32, 404, 460 }, { 0, 1 } }));
// clang-format on

} // namespace
} // namespace platform
