#include "Views/List/SourcePaneModel.h"
#include "PaneTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Positions = std::vector<int>;
using Calls = std::vector<std::string>;
using Seen = std::vector<std::string>;

class SourcePaneModelTest : public PaneTest<SourcePaneModel> { };

TEST_F(SourcePaneModelTest, ShowsEachVisibleSourceWithItsSignal)
{
    auto state = matrix(5, 2);
    state.inputStatus = {
        {1, {false, u"1080p"_s}}, {2, {true, std::nullopt}}, {3, {true, u"1080p"_s}}, {4, {true, u""_s}}};
    show(state);
    struct Case {
        const char* name;
        int position;
        std::optional<QString> detail;
    };
    const Case cases[] = {
        {"nothing known", 0, std::nullopt},
        {"no signal", 1, u"No signal"_s},
        {"no format", 2, u"Signal present"_s},
        {"the format alone", 3, u"1080p"_s},
        {"a format without a name", 4, u""_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(row(c.position).detail, c.detail);
        EXPECT_FALSE(row(c.position).locked);
        EXPECT_FALSE(row(c.position).hasBadge);
    }
}

TEST_F(SourcePaneModelTest, MarksTheCurrentOneWhereNothingIsKnownOfIt)
{
    auto state = matrix(3, 3);
    state.inputStatus = {{1, {true, std::nullopt}}};
    show(state);
    EXPECT_TRUE(row(0).showsCheckmark());
    EXPECT_FALSE(row(2).showsCheckmark()) << "not current";
    controller->focusDestination(1);
    EXPECT_TRUE(row(1).isCurrent);
    EXPECT_FALSE(row(1).showsCheckmark()) << "has a second line";
}

TEST_F(SourcePaneModelTest, TheCurrentOneFeedsTheFocusedDestinationOnTheShownLevel)
{
    auto state = matrix(4, 4, 2);
    state.routing[1][2] = 0;
    show(state);
    controller->focusDestination(2);
    EXPECT_EQ(current(), Positions{2});
    controller->setPrimaryLevel(1);
    EXPECT_EQ(current(), Positions{0});
    report(driverEvent::RouteChanged{1, 2, 3});
    EXPECT_EQ(current(), Positions{3});
    report(driverEvent::RouteChanged{1, 2, std::nullopt});
    EXPECT_EQ(current(), Positions{});
    showPanel({0, 1, 2}, {0, 1});
    EXPECT_EQ(controller->selectedDestination(), std::nullopt);
    EXPECT_EQ(current(), Positions{}) << "nothing focused";
}

TEST_F(SourcePaneModelTest, SourceLedTheCurrentOneIsTheFocusedOne)
{
    show(matrix(4, 4));
    controller->setDirection(RoutingDirection::sourceLed);
    controller->focusSource(2);
    EXPECT_EQ(current(), Positions{2});
    report(driverEvent::RouteChanged{0, 0, 3});
    EXPECT_EQ(current(), Positions{2});
}

TEST_F(SourcePaneModelTest, AStagedSourceIsPendingInConfirmModeOnly)
{
    show(matrix(4, 4));
    controller->setPendingSource(1);
    EXPECT_EQ(pending(), Positions{}) << "immediate";
    controller->setTakeMode(TakeMode::confirm);
    controller->setPendingSource(1);
    EXPECT_EQ(pending(), Positions{1});
    EXPECT_EQ(model.speech(1).help, u"Staged"_s);
    EXPECT_EQ(model.speech(1).description, u"Staged"_s) << "for those who are told no help";
    EXPECT_EQ(model.speech(2).help, QString());
    controller->setDirection(RoutingDirection::sourceLed);
    controller->setPendingSource(1);
    EXPECT_EQ(pending(), Positions{}) << "source-led";
}

TEST_F(SourcePaneModelTest, SaysWhereASourceGoesOrWhichOneIsSent)
{
    show(matrix(4, 4));
    EXPECT_EQ(subtitle(), "→ Out 1") << "a fresh router has its first destination focused";
    controller->focusDestination(2);
    EXPECT_EQ(subtitle(), "→ Out 3");
    controller->setMultiSelectMode(true);
    controller->toggleDestinationInGang(0);
    EXPECT_EQ(subtitle(), "→ 2 destinations");
    controller->deselectAllInGang();
    EXPECT_EQ(subtitle(), "Select a destination");

    controller->setDirection(RoutingDirection::sourceLed);
    EXPECT_EQ(subtitle(), "Sending In 1");
    controller->focusSource(3);
    EXPECT_EQ(subtitle(), "Sending In 4");
    report(driverEvent::LabelChanged{PortKind::source, 3, u"Cam"_s});
    EXPECT_EQ(subtitle(), "Sending Cam");
    for (const qint64 beyond : {-1, 4}) {
        controller->focusSource(beyond);
        EXPECT_EQ(subtitle(), "Select a source");
    }
}

TEST_F(SourcePaneModelTest, RoutesStagesOrFocuses)
{
    show(matrix(8, 8));
    showPanel({1, 3, 5}, {2, 4});
    controller->focusDestination(4);
    model.press(2);
    EXPECT_EQ(told(), Calls{"takeAll 0:4<5"});
    controller->setTakeMode(TakeMode::confirm);
    controller->focusDestination(4);
    model.press(1);
    EXPECT_EQ(told(), Calls{});
    EXPECT_EQ(controller->pendingSource(), 3);
    controller->setDirection(RoutingDirection::sourceLed);
    model.press(0);
    EXPECT_EQ(controller->selectedSource(), 1);
}

TEST_F(SourcePaneModelTest, TellsOfTheRowsThatAreDifferentAndOfNoOthers)
{
    auto state = matrix(6, 6, 2);
    state.inputStatus = {{2, {true, std::nullopt}}};
    show(state);
    showPanel({1, 2, 3, 4}, {1, 2, 3, 4});
    controller->focusDestination(2);
    RowTellings tellings(model);
    struct Case {
        const char* name;
        RouterDriverEvent event;
        Seen seen;
    };
    const Case cases[] = {
        {"the focused destination's tally", driverEvent::RouteChanged{0, 2, 4}, {"changed 1", "changed 3"}},
        {"another destination's tally", driverEvent::RouteChanged{0, 3, 4}, {}},
        {"a tally of another level", driverEvent::RouteChanged{1, 2, 1}, {}},
        {"a signal", driverEvent::InputStatusChanged{2, InputSignalStatus{}}, {"changed 1"}},
        {"the same signal", driverEvent::InputStatusChanged{2, InputSignalStatus{}}, {}},
        {"a hidden source's signal", driverEvent::InputStatusChanged{0, InputSignalStatus{}}, {}},
        {"a name", driverEvent::LabelChanged{PortKind::source, 3, u"Cam"_s}, {"changed 2"}},
        {"a destination's name", driverEvent::LabelChanged{PortKind::destination, 3, u"Out"_s}, {}},
        {"a lock", driverEvent::LockChanged{2, true}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        report(c.event);
        EXPECT_EQ(tellings.seen(), c.seen);
    }
}

} // namespace

} // namespace corvane
