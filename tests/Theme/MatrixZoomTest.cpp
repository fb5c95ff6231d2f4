#include "Theme/MatrixZoom.h"

#include <gtest/gtest.h>

#include <limits>

using namespace corvane;

namespace {

TEST(MatrixZoom, StepsAreCutShortAtTheEnds)
{
    struct Case {
        const char* name;
        double from;
        double shrunk;
        double grown;
    };
    const Case cases[] = {
        {"in the middle", 44, 38, 50},
        {"less than a step from the smallest", 33, 30, 39},
        {"at the smallest", 30, 30, 36},
        {"less than a step from the largest", 65, 59, 68},
        {"at the largest", 68, 62, 68},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        MatrixZoom zoom;
        zoom.setCellSize(c.from);
        EXPECT_EQ(zoom.canShrink(), c.shrunk < c.from);
        EXPECT_EQ(zoom.canGrow(), c.grown > c.from);
        zoom.shrink();
        EXPECT_EQ(zoom.cellSize(), c.shrunk);
        zoom.setCellSize(c.from);
        zoom.grow();
        EXPECT_EQ(zoom.cellSize(), c.grown);
    }
}

TEST(MatrixZoom, ADamagedSettingGivesCellsThatCanBeUsed)
{
    MatrixZoom zoom;
    zoom.setCellSize(1e9);
    EXPECT_EQ(zoom.cellSize(), 68);
    zoom.setCellSize(-5);
    EXPECT_EQ(zoom.cellSize(), 30);
    zoom.setCellSize(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(zoom.cellSize(), 44);
}

} // namespace
