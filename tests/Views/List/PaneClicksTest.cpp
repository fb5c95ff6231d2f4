#include "Theme/GlassKit.h"
#include "Views/List/DestinationListModel.h"
#include "support/ControllerTest.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;
using Calls = std::vector<std::string>;

/// Clicks in the list of a router of 8×8 whose destination 3 is locked.
class PaneClicksTest : public ControllerTest {
protected:
    void SetUp() override
    {
        auto state = matrix(8, 8);
        state.lockedDestinations = {3};
        connectTo(state);
        list.setController(controller.get());
    }

    [[nodiscard]] PaneModel& pane(PortKind kind)
    {
        return kind == PortKind::source ? *list.sources() : *list.destinations();
    }

    void lead(RoutingDirection direction, TakeMode mode)
    {
        controller->setDirection(direction);
        controller->setTakeMode(mode);
    }

    GlassKit theme{nullptr};
    DestinationListModel list{queue, theme};
};

constexpr auto destinationLed = RoutingDirection::destinationLed;
constexpr auto sourceLed = RoutingDirection::sourceLed;
constexpr auto source = PortKind::source;
constexpr auto destination = PortKind::destination;

TEST_F(PaneClicksTest, NothingStaysOfTheFirstClickOfADoubleClick)
{
    struct Case {
        const char* name;
        RoutingDirection direction;
        TakeMode mode;
        PortKind pane;
        bool isGanging = false;
        bool hasStaged = false;
    };
    const Case cases[] = {
        {"a route to the focused destination", destinationLed, TakeMode::immediate, source},
        {"routes to a gang", destinationLed, TakeMode::immediate, source, true},
        {"a staged source", destinationLed, TakeMode::confirm, source},
        {"another staged source", destinationLed, TakeMode::confirm, source, false, true},
        {"a source staged on a gang", destinationLed, TakeMode::confirm, source, true},
        {"a focused destination", destinationLed, TakeMode::immediate, destination},
        {"a focused destination that drops what is staged", destinationLed, TakeMode::confirm, destination,
            false, true},
        {"one more in a gang", destinationLed, TakeMode::immediate, destination, true},
        {"one more in a staged gang", destinationLed, TakeMode::confirm, destination, true, true},
        {"a focused source", sourceLed, TakeMode::immediate, source},
        {"a focused source that drops what is staged", sourceLed, TakeMode::confirm, source, false, true},
        {"a route of the focused source", sourceLed, TakeMode::immediate, destination},
        {"one more staged destination", sourceLed, TakeMode::confirm, destination},
        {"one more among staged destinations", sourceLed, TakeMode::confirm, destination, false, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        lead(c.direction, c.mode);
        controller->focusDestination(1);
        controller->focusSource(2);
        controller->setMultiSelectMode(c.isGanging);
        if (c.isGanging)
            controller->toggleDestinationInGang(4);
        if (c.hasStaged && c.direction == destinationLed)
            controller->chooseSource(6);
        else if (c.hasStaged)
            controller->assignDestination(6);
        const auto before = controller->aim();

        pane(c.pane).click(5);
        pane(c.pane).doubleClick(5);
        EXPECT_EQ(controller->aim(), before);
        EXPECT_EQ(controller->renameTarget(), (PortRef{c.pane, 5}));
        controller->setRenameTarget(std::nullopt);
        queue.advance(1s);
        EXPECT_EQ(told(), Calls{});
    }
}

TEST_F(PaneClicksTest, ASingleClickThatRoutesIsFeltAtOnceAndActsAMomentLater)
{
    controller->focusDestination(1);
    list.sources()->click(5);
    EXPECT_TRUE(list.sources()->rows().at(5).isHeld);
    queue.advance(249ms);
    EXPECT_EQ(told(), Calls{});
    queue.advance(1ms);
    EXPECT_EQ(told(), Calls{"takeAll 0:1<5"});
    EXPECT_FALSE(list.sources()->rows().at(5).isHeld);
    list.sources()->doubleClick(5);
    queue.advance(1s);
    EXPECT_EQ(told(), Calls{}) << "too late to be one with the first";
    EXPECT_EQ(controller->renameTarget(), std::nullopt);

    lead(sourceLed, TakeMode::immediate);
    controller->focusSource(7);
    list.destinations()->click(2);
    EXPECT_TRUE(list.destinations()->rows().at(2).isHeld);
    queue.advance(250ms);
    EXPECT_EQ(told(), Calls{"takeAll 0:2<7"});
}

TEST_F(PaneClicksTest, AHeldClickDoesWhatWasMeantWhenItWasMade)
{
    struct Case {
        const char* name;
        std::function<void()> next;
    };
    const Case cases[] = {
        {"another destination", [this] { list.destinations()->click(6); }},
        {"the keyboard", [this] { list.destinations()->press(6); }},
        {"a header action", [this] { list.destinations()->performHeaderAction(0); }},
        {"a badge", [this] { list.destinations()->clickBadge(6); }},
        {"the screen is left", [this] { list.setController(nullptr); }},
        {"another mode, and time",
            [this] {
                controller->setTakeMode(TakeMode::confirm);
                controller->focusDestination(7);
                queue.advance(250ms);
            }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        list.setController(controller.get());
        lead(destinationLed, TakeMode::immediate);
        controller->focusDestination(1);
        list.sources()->click(5);
        c.next();
        EXPECT_EQ(told(), Calls{"takeAll 0:1<5"});
        queue.advance(1s);
        EXPECT_EQ(told(), Calls{}) << "once";
    }
}

TEST_F(PaneClicksTest, TwoQuickClicksOnTwoRowsAreTwoClicks)
{
    controller->focusDestination(1);
    list.sources()->click(5);
    list.sources()->click(6);
    EXPECT_EQ(told(), Calls{"takeAll 0:1<5"});
    list.sources()->doubleClick(4);
    EXPECT_EQ(controller->renameTarget(), std::nullopt) << "the row is another one by now";
    queue.advance(250ms);
    EXPECT_EQ(told(), Calls{"takeAll 0:1<6"});
}

TEST_F(PaneClicksTest, WhatChangedMeanwhileIsNotPutBack)
{
    lead(destinationLed, TakeMode::confirm);
    controller->focusDestination(1);
    list.sources()->click(5);
    report(driverEvent::StateReplaced{matrix(8, 1)});
    const auto left = controller->aim();
    list.sources()->doubleClick(5);
    EXPECT_EQ(controller->aim(), left);
    EXPECT_EQ(controller->renameTarget(), (PortRef{source, 5}));
}

TEST_F(PaneClicksTest, WithNothingToRouteToAClickIsNotHeld)
{
    controller->deselectAllInGang();
    list.sources()->click(5);
    EXPECT_FALSE(list.sources()->rows().at(5).isHeld);
    lead(sourceLed, TakeMode::confirm);
    list.sources()->click(5);
    EXPECT_EQ(controller->selectedSource(), 5) << "at once";
}

} // namespace

} // namespace corvane
