#include "Views/CellFades.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

constexpr GridPlace place{.row = 1, .column = 2};

CellFades evenFades()
{
    return {[](double seconds) { return seconds / 2; }, 2};
}

TEST(CellFades, MovesACellAlongItsCurveAndThenRests)
{
    auto fades = evenFades();
    fades.start(place, 0, 1);
    EXPECT_EQ(fades.value(place, 1), 0);
    fades.advance(0.5);
    EXPECT_EQ(fades.value(place, 1), 0.25);
    EXPECT_FALSE(fades.isIdle());
    fades.advance(1.5);
    EXPECT_TRUE(fades.isIdle());
    EXPECT_EQ(fades.value(place, 1), 1);
}

TEST(CellFades, TurnsRoundFromWhereACellIs)
{
    auto fades = evenFades();
    fades.start(place, 0, 1);
    fades.advance(1);
    fades.start(place, 1, 0);
    EXPECT_EQ(fades.value(place, 0), 0.5);
    fades.advance(1);
    EXPECT_EQ(fades.value(place, 0), 0.25);
}

TEST(CellFades, LeavesOtherCellsAlone)
{
    auto fades = evenFades();
    fades.start(place, 0, 1);
    EXPECT_EQ(fades.value({2, 1}, 0), 0);
}

} // namespace

} // namespace corvane
