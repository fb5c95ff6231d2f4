#include "Views/PaneLayout.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

// 40 rows of 44 points: a row every 50.
constexpr PaneLayout layout{.rowCount = 40, .rowHeight = 44, .clearance = 60, .viewport = {300, 400}};

PaneLayout scrolledTo(double scroll)
{
    auto scrolled = layout;
    scrolled.scroll = scroll;
    return scrolled;
}

TEST(PaneLayout, KeepsTheLastRowClearOfWhatFloats)
{
    EXPECT_EQ(layout.contentHeight(), 10 + 40 * 50 - 6 + 10 + 60);
    EXPECT_EQ(layout.maximumScroll(), layout.contentHeight() - 400);
    EXPECT_EQ(scrolledTo(layout.maximumScroll()).rectOf(39).bottom(), 400 - 60 - 10);
    EXPECT_EQ((PaneLayout{.rowHeight = 44, .viewport = {300, 400}}).maximumScroll(), 0);
}

TEST(PaneLayout, FindsRowsButNotWhatIsBetweenThem)
{
    struct Case {
        const char* name;
        QPointF point;
        std::optional<int> row;
    };
    const Case cases[] = {
        {"the first", {150, 10}, 0},
        {"the second", {10, 60}, 1},
        {"between two", {150, 57}, std::nullopt},
        {"above", {150, 5}, std::nullopt},
        {"beside", {5, 20}, std::nullopt},
        {"outside", {150, 401}, std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(layout.rowAt(c.point), c.row) << c.name;
    EXPECT_EQ(scrolledTo(1000).rowAt({150, 10}), 20);
    auto few = layout;
    few.rowCount = 2;
    EXPECT_EQ(few.rowAt({150, 120}), std::nullopt) << "below the last";
}

TEST(PaneLayout, ScrollsNoFartherThanItMustToShowARow)
{
    EXPECT_EQ(layout.scrollShowing(0), 0);
    EXPECT_EQ(layout.scrollShowing(5), 0);
    EXPECT_EQ(layout.scrollShowing(6), 10 + 6 * 50 + 44 + 10 - 340) << "clear of what floats";
    EXPECT_EQ(layout.scrollShowing(39), layout.maximumScroll());
    EXPECT_EQ(scrolledTo(1000).scrollShowing(20), 1000);
    EXPECT_EQ(scrolledTo(1000).scrollShowing(19), 950);
    EXPECT_EQ(scrolledTo(1000).scrollShowing(0), 0);
    auto low = layout;
    low.viewport.setHeight(40);
    EXPECT_EQ(low.scrollShowing(3), 150) << "a row that doesn't fit shows its top";
}

TEST(PaneLayout, CentresOnlyWhatIsOutOfView)
{
    EXPECT_EQ(layout.scrollCentring(3), 0);
    EXPECT_EQ(layout.scrollCentring(20), 10 + 20 * 50 + 22 - 170);
    EXPECT_EQ(layout.scrollCentring(39), layout.maximumScroll());
}

TEST(PaneLayout, MovesTheFocusWithinTheRows)
{
    struct Case {
        const char* name;
        int from;
        Qt::Key key;
        std::optional<int> to;
    };
    const Case cases[] = {
        {"down", 3, Qt::Key_Down, 4},
        {"up", 3, Qt::Key_Up, 2},
        {"up from the first", 0, Qt::Key_Up, 0},
        {"down from the last", 39, Qt::Key_Down, 39},
        {"home", 20, Qt::Key_Home, 0},
        {"end", 20, Qt::Key_End, 39},
        {"a page down", 3, Qt::Key_PageDown, 8},
        {"a page up", 8, Qt::Key_PageUp, 3},
        {"less than a page up", 2, Qt::Key_PageUp, 0},
        {"less than a page down", 38, Qt::Key_PageDown, 39},
        {"across", 3, Qt::Key_Right, std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(layout.moved(c.from, c.key), c.to) << c.name;
    EXPECT_EQ(PaneLayout{}.moved(0, Qt::Key_End), 0) << "no rows";
}

TEST(PaneLayout, KnowsWhichRowsAreInView)
{
    EXPECT_TRUE(layout.isInView(7));
    EXPECT_FALSE(layout.isInView(8));
    EXPECT_FALSE(scrolledTo(60).isInView(0));
    EXPECT_TRUE(scrolledTo(50).isInView(0));
}

} // namespace

} // namespace corvane
