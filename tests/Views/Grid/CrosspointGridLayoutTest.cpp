#include "Views/Grid/GridLayout.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

using testing::Eq;
using testing::Optional;
constexpr int header = GridPlace::header;

/// 100 by 100 cells with a stride of 50, in a view that shows 10 columns and 6 rows clear of the headers.
GridLayout layout(QPointF scroll = {})
{
    GridLayout layout;
    layout.sourceCount = 100;
    layout.destinationCount = 100;
    layout.cell = 45;
    layout.gap = 5;
    layout.destWidth = 140;
    layout.headerHeight = 105;
    layout.controlBarClearance = 60;
    layout.viewport = {145 + 500, 110 + 300};
    layout.scroll = scroll;
    return layout;
}

TEST(GridLayout, LeavesRoomBehindTheLastColumnAndForTheControlBar)
{
    EXPECT_EQ(layout().contentSize(), QSizeF(145 + 4995 + 24, 110 + 4995 + 60));
    EXPECT_EQ(layout().maximumScroll(), QPointF(4519, 4755));
}

TEST(GridLayout, ScrollsNoFurtherThanThereIsContent)
{
    EXPECT_EQ(layout().clampedScroll({-5, 99999}), QPointF(0, 4755));
    GridLayout small = layout();
    small.sourceCount = 2;
    small.destinationCount = 0;
    EXPECT_EQ(small.clampedScroll({30, 30}), QPointF(0, 0));
}

TEST(GridLayout, KnowsWhatIsInView)
{
    EXPECT_EQ(layout().columnsInView(), (GridSpan{0, 10}));
    EXPECT_EQ(layout().rowsInView(), (GridSpan{0, 6}));
    // A cell that has left the field's edge still shows in the gap before the header.
    EXPECT_EQ(layout({52, 1}).columnsInView(), (GridSpan{0, 12}));
    EXPECT_EQ(layout({4519, 4755}).columnsInView(), (GridSpan{90, 100}));
    EXPECT_EQ(layout({4519, 4755}).rowsInView(), (GridSpan{95, 100}));
}

TEST(GridLayout, ShowsNothingInAViewWithoutSizeOrPorts)
{
    GridLayout none = layout();
    none.viewport = {};
    EXPECT_EQ(none.rowsInView(), (GridSpan{0, 0}));
    none = layout();
    none.sourceCount = 0;
    EXPECT_EQ(none.columnsInView(), (GridSpan{0, 0}));
}

TEST(GridLayout, FindsThePlaceUnderAPoint)
{
    const struct {
        const char* name;
        QPointF scroll;
        QPointF point;
        std::optional<GridPlace> place;
    } cases[] = {
        {"corner", {}, {10, 10}, std::nullopt},
        {"first cell", {}, {145, 110}, GridPlace{0, 0}},
        {"last point of a cell", {}, {190, 155}, GridPlace{0, 0}},
        {"gap between columns", {}, {190.5, 120}, std::nullopt},
        {"gap between rows", {}, {150, 159.9}, std::nullopt},
        {"next cell", {}, {195, 160}, GridPlace{1, 1}},
        {"last cell's last point", {4519, 4755}, {145 + 4995 - 4519, 110 + 4995 - 4755}, GridPlace{99, 99}},
        {"right of the field", {4519, 4755}, {145 + 5000 - 4519, 200}, std::nullopt},
        {"below the field", {4519, 4755}, {200, 110 + 5000 - 4755}, std::nullopt},
        {"gap after the row headers", {}, {142, 120}, std::nullopt},
        {"cell beneath that gap", {20, 0}, {142, 120}, GridPlace{0, 0}},
        {"row header", {}, {30, 165}, GridPlace{1, header}},
        {"gap between row headers", {}, {30, 157}, std::nullopt},
        {"scrolled row header", {500, 1000}, {30, 165}, GridPlace{21, header}},
        {"column header", {}, {200, 50}, GridPlace{header, 1}},
        {"scrolled column header", {500, 1000}, {200, 50}, GridPlace{header, 11}},
        {"header wins over the cell beneath", {25, 25}, {130, 130}, GridPlace{0, header}},
        {"outside", {}, {700, 200}, std::nullopt},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(layout(c.scroll).placeAt(c.point), c.place);
    }
}

TEST(GridLayout, FindsRowHeadersEvenWithoutColumns)
{
    GridLayout rowsOnly = layout();
    rowsOnly.sourceCount = 0;
    EXPECT_THAT(rowsOnly.placeAt({30, 120}), Optional(Eq(GridPlace{0, header})));
}

TEST(GridLayout, FollowsTheFocusNoFurtherThanItMust)
{
    const struct {
        const char* name;
        QPointF scroll;
        GridPlace place;
        QPointF shown;
    } cases[] = {
        {"in view", {0, 0}, {2, 3}, {0, 0}},
        {"right of the view", {0, 0}, {2, 10}, {45, 0}},
        {"below what floats over the edge", {0, 0}, {5, 0}, {0, 55}},
        {"left of the view", {500, 0}, {2, 3}, {150, 0}},
        {"above the view", {0, 500}, {2, 3}, {0, 100}},
        {"row header scrolls no columns", {500, 0}, {2, header}, {500, 0}},
        {"column header scrolls no rows", {0, 500}, {header, 3}, {0, 500}},
        {"last", {0, 0}, {99, 99}, {4495, 4755}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(layout(c.scroll).scrollShowing(c.place), c.shown);
    }
}

TEST(GridLayout, MovesTheFocusByKeys)
{
    const struct {
        const char* name;
        GridPlace from;
        int key;
        Qt::KeyboardModifiers modifiers;
        std::optional<GridPlace> to;
    } cases[] = {
        {"right", {2, 3}, Qt::Key_Right, {}, GridPlace{2, 4}},
        {"down", {2, 3}, Qt::Key_Down, {}, GridPlace{3, 3}},
        {"left into the row headers", {2, 0}, Qt::Key_Left, {}, GridPlace{2, header}},
        {"up into the column headers", {0, 3}, Qt::Key_Up, {}, GridPlace{header, 3}},
        {"not into the corner from the row headers", {0, header}, Qt::Key_Up, {}, GridPlace{0, header}},
        {"not into the corner from the column headers", {header, 0}, Qt::Key_Left, {}, GridPlace{header, 0}},
        {"not beyond the last column", {2, 99}, Qt::Key_Right, {}, GridPlace{2, 99}},
        {"not beyond the last row", {99, 3}, Qt::Key_Down, {}, GridPlace{99, 3}},
        {"first column", {2, 30}, Qt::Key_Home, {}, GridPlace{2, 0}},
        {"last column", {2, 30}, Qt::Key_End, {}, GridPlace{2, 99}},
        {"first cell", {2, 30}, Qt::Key_Home, Qt::ControlModifier, GridPlace{0, 0}},
        {"last cell", {2, 30}, Qt::Key_End, Qt::ControlModifier, GridPlace{99, 99}},
        {"a page down", {2, 3}, Qt::Key_PageDown, {}, GridPlace{5, 3}},
        {"a page up", {9, 3}, Qt::Key_PageUp, {}, GridPlace{6, 3}},
        {"a page up to the first row", {1, 3}, Qt::Key_PageUp, {}, GridPlace{0, 3}},
        {"a page down to the last row", {98, 3}, Qt::Key_PageDown, {}, GridPlace{99, 3}},
        {"a page down from the column headers", {header, 3}, Qt::Key_PageDown, {}, GridPlace{2, 3}},
        {"no page above the column headers", {header, 3}, Qt::Key_PageUp, {}, GridPlace{header, 3}},
        {"another key", {2, 3}, Qt::Key_A, {}, std::nullopt},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(layout().moved(c.from, c.key, c.modifiers), c.to);
    }
}

TEST(GridLayout, StaysPutWhereThereAreNoCells)
{
    GridLayout rowsOnly = layout();
    rowsOnly.sourceCount = 0;
    for (const int key : {Qt::Key_Right, Qt::Key_Home, Qt::Key_Up})
        EXPECT_EQ(rowsOnly.moved({0, header}, key, {}), (GridPlace{0, header}));
}

} // namespace

} // namespace corvane
