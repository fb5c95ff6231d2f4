#include "Views/Bar/ControlBarModel.h"
#include "Theme/Tints.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class ControlBarModelTest : public ControllerTest {
protected:
    void SetUp() override { model.setController(controller.get()); }

    [[nodiscard]] const ControlBarContent& content() const { return model.content(); }

    GlassKit theme{nullptr};
    MatrixZoom zoom;
    ControlBarModel model{theme, zoom};
};

TEST_F(ControlBarModelTest, IsThereAsLongAsThereIsSomethingOnIt)
{
    struct Case {
        const char* name;
        qint64 levels;
        RouteViewMode view;
        TakeMode take;
        bool expected;
    };
    const Case cases[] = {
        {"nothing to offer", 1, RouteViewMode::list, TakeMode::immediate, false},
        {"no levels at all", 0, RouteViewMode::list, TakeMode::immediate, false},
        {"levels", 2, RouteViewMode::list, TakeMode::immediate, true},
        {"cell size", 1, RouteViewMode::matrix, TakeMode::immediate, true},
        {"take", 1, RouteViewMode::list, TakeMode::confirm, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        connectTo(matrix(2, 2, c.levels));
        controller->setViewMode(c.view);
        controller->setTakeMode(c.take);
        EXPECT_EQ(content().isShown, c.expected);
        EXPECT_EQ(content().showsLevels, c.levels >= 2);
        EXPECT_EQ(content().showsZoom, c.view == RouteViewMode::matrix);
        EXPECT_EQ(content().showsTake, c.take == TakeMode::confirm);
        EXPECT_TRUE(ControlBar::hasContent(*controller, true));
    }
}

TEST_F(ControlBarModelTest, PicksLevelsByTheirIndexAndNotByTheirPlace)
{
    auto state = matrix(2, 2, 3);
    state.levels.swapItemsAt(0, 2);
    connectTo(state);
    EXPECT_EQ(content().levels, (QStringList{u"Level 2"_s, u"Level 1"_s, u"Level 0"_s}));
    EXPECT_EQ(content().level, 2);
    model.chooseLevel(0);
    EXPECT_EQ(controller->primaryLevel(), 2);
    EXPECT_EQ(content().level, 0);
    model.chooseLevel(7);
    EXPECT_EQ(controller->primaryLevel(), 2);
}

TEST_F(ControlBarModelTest, FollowsAllLevelsOrBreaksAwayOnTheOneThatIsShown)
{
    auto state = matrix(2, 2, 2);
    state.levels[1].kind = LevelKind::audio;
    connectTo(state);
    EXPECT_EQ(content().followText, u"Follow"_s);
    EXPECT_EQ(content().followSymbol, u"link"_s);
    EXPECT_EQ(content().followTint, theme.palette().secondary);

    model.chooseLevel(1);
    model.toggleFollow();
    EXPECT_EQ(controller->breakawayLevels(), QSet<qint64>{1});
    EXPECT_EQ(content().followText, u"Breakaway"_s);
    EXPECT_EQ(content().followSymbol, u"scissors"_s);
    EXPECT_EQ(content().followTint, theme.palette().tintText(theme.palette().green));

    model.toggleFollow();
    EXPECT_EQ(controller->breakawayLevels(), QSet<qint64>{});
}

TEST_F(ControlBarModelTest, BreakawayFollowsThePickerAndKeepsOneLevel)
{
    connectTo(matrix(2, 2, 3));
    model.chooseLevel(1);
    EXPECT_EQ(controller->breakawayLevels(), QSet<qint64>{});
    controller->setBreakawayLevels({0, 1});
    model.chooseLevel(2);
    EXPECT_EQ(controller->breakawayLevels(), QSet<qint64>{2});
}

TEST_F(ControlBarModelTest, AControllerThatWasGivenUpIsLeftAlone)
{
    connectTo(matrix(2, 2, 3));
    controller->setBreakawayLevels({0, 1});
    const auto other = makeController();
    model.setController(other.get());
    controller->setPrimaryLevel(2);
    EXPECT_EQ(controller->breakawayLevels(), (QSet<qint64>{0, 1}));
}

TEST_F(ControlBarModelTest, TellsWhatATakeWouldDo)
{
    struct Case {
        const char* name;
        qint64 source;
        QSet<qint64> destinations;
        QString expectedSource;
        QString expectedTarget;
    };
    const Case cases[] = {
        {"one destination", 1, {2}, u"In 2"_s, u"→ Out 3"_s},
        {"several", 0, {0, 1, 3}, u"In 1"_s, u"→ 3 destinations"_s},
        {"a source beyond the router", 9, {2}, u"—"_s, u"→ Out 3"_s},
        {"a destination beyond the router", 1, {9}, u"In 2"_s, u"→ —"_s},
    };
    connectTo(matrix(4, 4));
    controller->setTakeMode(TakeMode::confirm);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        controller->setPendingDestinations(c.destinations);
        controller->setPendingSource(c.source);
        EXPECT_EQ(content().stagedSource, c.expectedSource);
        EXPECT_EQ(content().targetText, c.expectedTarget);
        EXPECT_EQ(content().emptyHint, QString());
        EXPECT_TRUE(content().canTake);
        EXPECT_TRUE(content().canClear);
    }
}

TEST_F(ControlBarModelTest, NamesWhatIsStagedAndLocked)
{
    struct Case {
        const char* name;
        std::optional<qint64> source;
        std::optional<qint64> destination;
        QSet<qint64> destinations;
        QString shown;
    };
    const Case cases[] = {
        {"selected first", {}, 2, {}, u"Out 3 is locked."_s},
        {"the only one", 0, 2, {}, u"Out 3 is locked."_s},
        {"one of several", 0, {}, {0, 1, 2}, u"→ 2 of 3, locked: Out 3"_s},
        {"some of several", 0, {}, {0, 2, 3}, u"→ 1 of 3, locked: Out 3, Out 4"_s},
        {"all of several", 0, {}, {2, 3}, u"→ 0 of 2, locked: Out 3, Out 4"_s},
        {"none", 0, {}, {0, 1}, u""_s},
    };
    connectTo(matrix(4, 4));
    controller->setTakeMode(TakeMode::confirm);
    controller->setDirection(RoutingDirection::sourceLed);
    for (const auto& c : cases) {
        controller->setPendingSource(c.source);
        controller->setPendingDestination(c.destination);
        controller->setPendingDestinations(c.destinations);
        for (const qint64 locked : {2, 3})
            report(driverEvent::LockChanged{locked, true});
        EXPECT_EQ(content().lockedText, c.shown) << c.name;
        EXPECT_EQ(content().emptyHint, QString()) << c.name;
        for (const qint64 locked : {2, 3})
            report(driverEvent::LockChanged{locked, false});
        EXPECT_EQ(content().lockedText, QString()) << c.name;
    }
}

TEST_F(ControlBarModelTest, TellsHowToGetToATake)
{
    connectTo(matrix(4, 4));
    controller->setTakeMode(TakeMode::confirm);
    EXPECT_EQ(content().emptyHint, u"Stage a route"_s);
    EXPECT_FALSE(content().canTake);
    EXPECT_FALSE(content().canClear);
    controller->setDirection(RoutingDirection::sourceLed);
    EXPECT_EQ(content().emptyHint, u"Tap destinations to stage"_s);
}

TEST_F(ControlBarModelTest, HalfARouteCanBeClearedButNotTaken)
{
    connectTo(matrix(4, 4));
    controller->setTakeMode(TakeMode::confirm);
    controller->setPendingSource(1);
    EXPECT_FALSE(content().canTake);
    EXPECT_TRUE(content().canClear);
    model.clearPending();
    EXPECT_FALSE(content().canClear);
}

TEST_F(ControlBarModelTest, TakesWhatIsStaged)
{
    connectTo(matrix(4, 4));
    controller->setTakeMode(TakeMode::confirm);
    controller->setPendingDestination(2);
    controller->setPendingSource(1);
    model.confirmTake();
    EXPECT_EQ(told(), std::vector<std::string>{"takeAll 0:2<1"});
    EXPECT_FALSE(content().canTake);
}

TEST_F(ControlBarModelTest, DividesOnlyWhatHasSomethingAheadOfIt)
{
    struct Case {
        const char* name;
        qint64 levels;
        RouteViewMode view;
        TakeMode take;
        bool dividesZoom;
        bool dividesTake;
    };
    const Case cases[] = {
        {"zoom alone", 1, RouteViewMode::matrix, TakeMode::immediate, false, false},
        {"take alone", 1, RouteViewMode::list, TakeMode::confirm, false, false},
        {"zoom and take", 1, RouteViewMode::matrix, TakeMode::confirm, false, true},
        {"levels and take", 2, RouteViewMode::list, TakeMode::confirm, false, true},
        {"levels and zoom", 2, RouteViewMode::matrix, TakeMode::immediate, true, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        connectTo(matrix(2, 2, c.levels));
        controller->setViewMode(c.view);
        controller->setTakeMode(c.take);
        EXPECT_EQ(content().dividesZoom, c.dividesZoom);
        EXPECT_EQ(content().dividesTake, c.dividesTake);
    }
}

} // namespace

} // namespace corvane
