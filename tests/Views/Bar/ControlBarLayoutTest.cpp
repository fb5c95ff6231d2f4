#include "Views/Bar/ControlBarLayout.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

constexpr ControlBarParts everything{
    .levelPicker = {200, 28}, .followButton = {80, 28}, .zoom = {70, 28}, .takeCluster = {180, 32}};
// 16 + 200 + 14 + 80 + 14 + 1 + 14 + 70 + 14 + 1 + 14 + 180 + 16
constexpr double singleRowWidth = 634;
// 16 + 200 + 14 + 80 + 14 + 1 + 14 + 70 + 16
constexpr double twoRowWidth = 425;

TEST(ControlBarLayout, PutsEverythingInOneRowWhereItFits)
{
    const auto places = layOutControlBar(everything, singleRowWidth);
    EXPECT_EQ(places.bar, QSizeF(singleRowWidth, 9 + 32 + 9));
    EXPECT_EQ(places.levelPicker, QRectF(16, 11, 200, 28));
    EXPECT_EQ(places.followButton, QRectF(230, 11, 80, 28));
    EXPECT_EQ(places.zoomDivider, QRectF(324, 12, 1, 26));
    EXPECT_EQ(places.zoom, QRectF(339, 11, 70, 28));
    EXPECT_EQ(places.takeDivider, QRectF(423, 11, 1, 28));
    EXPECT_EQ(places.takeCluster, QRectF(438, 9, 180, 32));
}

TEST(ControlBarLayout, MovesTheTakeIntoARowOfItsOwnWhenThereIsLessRoom)
{
    for (const double width : {singleRowWidth - 1, twoRowWidth}) {
        SCOPED_TRACE(width);
        const auto places = layOutControlBar(everything, width);
        EXPECT_EQ(places.bar, QSizeF(twoRowWidth, 9 + 28 + 10 + 32 + 9));
        EXPECT_EQ(places.zoom.top(), places.levelPicker.top());
        EXPECT_FALSE(places.zoomDivider.isEmpty());
        EXPECT_TRUE(places.takeDivider.isEmpty());
        EXPECT_EQ(places.takeCluster, QRectF((twoRowWidth - 180) / 2, 9 + 28 + 10, 180, 32));
    }
}

TEST(ControlBarLayout, UsesThreeRowsWithoutDividersWhenThereIsLeastRoom)
{
    const auto places = layOutControlBar(everything, twoRowWidth - 1);
    EXPECT_EQ(places.bar, QSizeF(16 + 200 + 14 + 70 + 16, 9 + 28 + 10 + 28 + 10 + 32 + 9));
    EXPECT_TRUE(places.zoomDivider.isEmpty());
    EXPECT_TRUE(places.takeDivider.isEmpty());
    EXPECT_LT(places.followButton.top(), places.levelPicker.top());
    EXPECT_EQ(places.levelPicker.top(), places.zoom.top());
    EXPECT_LT(places.levelPicker.top(), places.takeCluster.top());
}

TEST(ControlBarLayout, GivesManyLevelsTheRoomThatIsLeft)
{
    auto parts = everything;
    parts.levelPicker.setWidth(2000);
    const auto places = layOutControlBar(parts, 400);
    EXPECT_EQ(places.bar.width(), 400);
    EXPECT_EQ(places.levelPicker.width(), 400 - 32 - 70 - 14);
}

TEST(ControlBarLayout, NeverGrowsBeyondItsWidest)
{
    auto parts = everything;
    parts.levelPicker.setWidth(2000);
    EXPECT_EQ(layOutControlBar(parts, 5000).bar.width(), 820);
}

TEST(ControlBarLayout, DrawsADividerOnlyBetweenTwoThings)
{
    struct Case {
        const char* name;
        ControlBarParts parts;
        bool zoomDivider;
        bool takeDivider;
    };
    const QSizeF none;
    const Case cases[] = {
        {"zoom alone", {none, none, {70, 28}, none}, false, false},
        {"take alone", {none, none, none, {180, 32}}, false, false},
        {"zoom and take", {none, none, {70, 28}, {180, 32}}, false, true},
        {"levels and take", {{200, 28}, {80, 28}, none, {180, 32}}, false, true},
        {"levels and zoom", {{200, 28}, {80, 28}, {70, 28}, none}, true, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto places = layOutControlBar(c.parts, 800);
        EXPECT_EQ(!places.zoomDivider.isEmpty(), c.zoomDivider);
        EXPECT_EQ(!places.takeDivider.isEmpty(), c.takeDivider);
    }
}

TEST(ControlBarLayout, ARowWithNothingInItIsLeftOut)
{
    EXPECT_EQ(layOutControlBar({}, 800), ControlBarPlaces{});
    const auto places = layOutControlBar(
        {.levelPicker = {}, .followButton = {}, .zoom = {70, 28}, .takeCluster = {180, 32}}, 250);
    EXPECT_EQ(places.bar.height(), 9 + 28 + 10 + 32 + 9);
}

} // namespace

} // namespace corvane
