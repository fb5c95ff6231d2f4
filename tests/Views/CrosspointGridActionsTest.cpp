#include "Views/GridActions.h"

#include "support/ControllerTest.h"

namespace corvane {

namespace {

using Calls = std::vector<std::string>;
using Kind = PortAction::Kind;

class GridActionsTest : public ControllerTest {
protected:
    void SetUp() override
    {
        connectTo(matrix(8, 8));
        // Places and port indices differ, so that one can't pass for the other.
        const SubPanel panel{
            .name = QStringLiteral("P"), .sourceIndices = {1, 3, 5}, .destinationIndices = {2, 4, 6}};
        controller->savePanel(panel);
        controller->setActivePanelID(panel.id);
        model.setController(controller.get());
    }

    [[nodiscard]] Staging staging() const
    {
        return {
            controller->pendingDestination(), controller->pendingSource(), controller->pendingDestinations()};
    }

    CrosspointGridModel model;
    GridActions actions{model};
};

constexpr GridPlace cell{.row = 1, .column = 2};
constexpr GridPlace rowHeader{.row = 1, .column = GridPlace::header};
constexpr GridPlace columnHeader{.row = GridPlace::header, .column = 2};

TEST_F(GridActionsTest, RoutesAtOnceWithAClickOnACell)
{
    actions.click(cell);
    EXPECT_EQ(told(), Calls{"takeAll 0:4<5"});
    EXPECT_EQ(staging(), Staging{});
}

TEST_F(GridActionsTest, StagesWithAClickOnACellInConfirmModeAndDropsAGang)
{
    controller->setTakeMode(TakeMode::confirm);
    controller->setPendingDestinations({2, 6});
    actions.click(cell);
    EXPECT_EQ(staging(), (Staging{4, 5, {}}));
    EXPECT_EQ(told(), Calls{});
    EXPECT_TRUE(model.row(1).cellAt(2).isPending);
}

TEST_F(GridActionsTest, LeavesItToTheControllerToRefuseALockedDestination)
{
    report(driverEvent::LockChanged{4, true});
    actions.click(cell);
    EXPECT_EQ(lastError(), QStringLiteral("Out 5 is locked."));
}

TEST_F(GridActionsTest, AimsWithAClickOnARowHeader)
{
    controller->setTakeMode(TakeMode::confirm);
    controller->setPendingSource(1);
    actions.click(rowHeader);
    EXPECT_EQ(staging(), (Staging{4, std::nullopt, {}}));
}

TEST_F(GridActionsTest, DoesNothingWithAClickOnAColumnHeader)
{
    controller->setTakeMode(TakeMode::confirm);
    actions.click(columnHeader);
    EXPECT_EQ(staging(), Staging{});
    EXPECT_EQ(told(), Calls{});
}

TEST_F(GridActionsTest, RenamesWithADoubleClickOnAHeader)
{
    actions.doubleClick(rowHeader);
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::destination, 4}));
    actions.doubleClick(columnHeader);
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::source, 5}));
}

TEST_F(GridActionsTest, KeepsWhatIsStagedThroughADoubleClick)
{
    controller->setTakeMode(TakeMode::confirm);
    controller->setPendingDestination(2);
    controller->setPendingSource(3);
    actions.click(rowHeader);
    actions.doubleClick(rowHeader);
    EXPECT_EQ(staging(), (Staging{2, 3, {}}));
}

TEST_F(GridActionsTest, BringsNothingBackThatWasStagedBeforeAnEarlierGesture)
{
    controller->setTakeMode(TakeMode::confirm);
    controller->setPendingDestination(2);
    actions.click(rowHeader);
    actions.beginGesture();
    controller->setPendingDestination(1);
    controller->setPendingSource(3);
    actions.doubleClick(rowHeader);
    EXPECT_EQ(staging(), (Staging{1, 3, {}}));
}

TEST_F(GridActionsTest, RoutesASourceToTheStagedDestinationAndNowhereElse)
{
    actions.perform(Kind::routeToSelectedDestination, columnHeader);
    EXPECT_EQ(told(), Calls{}) << "no destination staged";

    controller->setTakeMode(TakeMode::confirm);
    actions.click(rowHeader);
    actions.perform(Kind::routeToSelectedDestination, columnHeader);
    EXPECT_EQ(staging(), (Staging{4, 5, {}}));

    actions.take();
    EXPECT_EQ(told(), Calls{"takeAll 0:4<5"});
}

TEST_F(GridActionsTest, LocksAndUnlocks)
{
    actions.perform(Kind::toggleLock, rowHeader);
    EXPECT_EQ(told(), Calls{"setLock 4 0 true"});
    actions.perform(Kind::toggleLock, cell);
    EXPECT_EQ(told(), Calls{"setLock 4 0 false"});
}

std::vector<std::string> names(const QList<PortAction>& actions)
{
    std::vector<std::string> result;
    for (const PortAction& action : actions)
        result.push_back(action.name.toStdString() + "|" + action.symbol.toStdString());
    return result;
}

TEST_F(GridActionsTest, OffersAMenuAtHeaders)
{
    EXPECT_EQ(names(actions.menu(columnHeader)), Calls{"Rename Source…|pencil"});
    EXPECT_EQ(names(actions.menu(rowHeader)), (Calls{"Rename Destination…|pencil", "Lock|lock"}));
    report(driverEvent::LockChanged{4, true});
    EXPECT_EQ(names(actions.menu(rowHeader)), (Calls{"Rename Destination…|pencil", "Unlock|lock.open"}));
    EXPECT_TRUE(actions.menu(cell).isEmpty());
}

TEST_F(GridActionsTest, OffersScreenReadersToRouteASource)
{
    EXPECT_EQ(
        names(actions.accessibleActions(columnHeader)), (Calls{"Route to Selected Destination|", "Rename|"}));
    EXPECT_EQ(actions.accessibleActions(rowHeader), actions.menu(rowHeader));
}

TEST_F(GridActionsTest, DoesNothingOnceTheRouterIsGone)
{
    controller.reset();
    actions.click(cell);
    actions.doubleClick(rowHeader);
    actions.perform(Kind::toggleLock, rowHeader);
    actions.take();
    EXPECT_TRUE(actions.menu(rowHeader).isEmpty());
}

} // namespace

} // namespace corvane
