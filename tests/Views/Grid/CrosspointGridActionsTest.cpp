#include "Views/Grid/CrosspointGridModel.h"

#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Calls = std::vector<std::string>;

class GridActionsTest : public ControllerTest {
protected:
    void SetUp() override
    {
        connectTo(matrix(8, 8));
        // Places and port indices differ, so that one can't pass for the other.
        const SubPanel panel{.name = u"P"_s, .sourceIndices = {1, 3, 5}, .destinationIndices = {2, 4, 6}};
        controller->savePanel(panel);
        controller->setActivePanelID(panel.id);
        model.setController(controller.get());
    }

    void stage(const Staging& staging)
    {
        controller->setPendingDestinations(staging.destinations);
        controller->setPendingDestination(staging.destination);
        controller->setPendingSource(staging.source);
    }

    [[nodiscard]] Staging staging() const
    {
        return {
            controller->pendingDestination(), controller->pendingSource(), controller->pendingDestinations()};
    }

    void act(GridPlace place, const QString& name)
    {
        for (const auto& action : actions.accessibleActions(place))
            if (action.text == name)
                action.run();
    }

    const QString route = u"Route to Selected Destination"_s;
    GlassKit theme{nullptr};
    CrosspointGridModel model{theme};
    GridActions& actions = model.actions();
};

constexpr GridPlace cell{.row = 1, .column = 2};
constexpr GridPlace rowHeader{.row = 1, .column = GridPlace::header};
constexpr GridPlace columnHeader{.row = GridPlace::header, .column = 2};

TEST_F(GridActionsTest, AsksOfTheControllerWhatEachGestureMeans)
{
    constexpr auto direct = TakeMode::immediate;
    constexpr auto confirm = TakeMode::confirm;
    const PortRef destination{PortKind::destination, 4};
    const PortRef source{PortKind::source, 5};
    struct Case {
        const char* name;
        TakeMode mode;
        Staging before;
        std::function<void()> gesture;
        Calls told;
        Staging after;
        std::optional<PortRef> renames;
    };
    const Case cases[] = {
        {"a cell routes", direct, {}, [&] { actions.click(cell); }, {"takeAll 0:4<5"}, {}, {}},
        {"a cell stages and drops a gang", confirm, {{}, {}, {2, 6}}, [&] { actions.click(cell); }, {},
            {4, 5, {}}, {}},
        {"a row header stages its destination only", confirm, {{}, 1, {}}, [&] { actions.click(rowHeader); },
            {}, {4, {}, {}}, {}},
        {"a column header does nothing", confirm, {2, 3, {}}, [&] { actions.click(columnHeader); }, {},
            {2, 3, {}}, {}},
        {"two clicks on a row header rename", direct, {}, [&] { actions.doubleClick(rowHeader); }, {}, {},
            destination},
        {"two clicks on a column header rename", confirm, {2, 3, {}},
            [&] { actions.doubleClick(columnHeader); }, {}, {2, 3, {}}, source},
        {"two clicks put back what the first one staged", confirm, {2, 3, {}},
            [&] {
                actions.beginGesture();
                actions.click(rowHeader);
                actions.doubleClick(rowHeader);
            },
            {}, {2, 3, {}}, destination},
        {"they put back nothing of an earlier gesture", confirm, {2, {}, {}},
            [&] {
                actions.click(rowHeader);
                actions.beginGesture();
                stage({1, 3, {}});
                actions.doubleClick(rowHeader);
            },
            {}, {1, 3, {}}, destination},
        {"a source goes nowhere without a staged destination", direct, {{}, 1, {}},
            [&] { act(columnHeader, route); }, {}, {{}, 1, {}}, {}},
        {"a source goes to the staged destination", direct, {2, {}, {}}, [&] { act(columnHeader, route); },
            {"takeAll 0:2<5"}, {2, {}, {}}, {}},
        {"a source is staged for the staged destination", confirm, {2, {}, {}},
            [&] { act(columnHeader, route); }, {}, {2, 5, {}}, {}},
        {"a source is renamed by its action", direct, {}, [&] { act(columnHeader, u"Rename"_s); }, {}, {},
            source},
        {"a destination is locked", direct, {}, [&] { act(rowHeader, u"Lock"_s); }, {"setLock 4 0 true"}, {},
            {}},
        {"and unlocked by a cell", direct, {}, [&] { actions.toggleLock(cell); }, {"setLock 4 0 false"}, {},
            {}},
        {"a source has no lock", direct, {}, [&] { actions.toggleLock(columnHeader); }, {}, {}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        controller->setTakeMode(c.mode);
        controller->setRenameTarget(std::nullopt);
        stage(c.before);
        c.gesture();
        EXPECT_EQ(told(), c.told);
        EXPECT_EQ(staging(), c.after);
        EXPECT_EQ(controller->renameTarget(), c.renames);
    }
}

TEST_F(GridActionsTest, LeavesItToTheControllerToRefuseALockedDestination)
{
    report(driverEvent::LockChanged{4, true});
    actions.click(cell);
    EXPECT_EQ(lastError(), u"Out 5 is locked."_s);
}

Calls names(const QList<MenuAction>& actions)
{
    Calls result;
    for (const auto& action : actions)
        result.push_back(action.text.toStdString() + "|" + action.symbol.toStdString());
    return result;
}

TEST_F(GridActionsTest, OffersMenusAtHeadersAndMoreToScreenReaders)
{
    EXPECT_EQ(names(actions.menu(columnHeader)), Calls{"Rename Source…|pencil"});
    EXPECT_EQ(
        names(actions.accessibleActions(columnHeader)), (Calls{"Route to Selected Destination|", "Rename|"}));
    EXPECT_EQ(names(actions.menu(rowHeader)), (Calls{"Rename Destination…|pencil", "Lock|lock"}));
    report(driverEvent::LockChanged{4, true});
    EXPECT_EQ(names(actions.menu(rowHeader)), (Calls{"Rename Destination…|pencil", "Unlock|lock.open"}));
    EXPECT_EQ(actions.accessibleActions(rowHeader), actions.menu(rowHeader));
    EXPECT_TRUE(actions.menu(cell).isEmpty());
}

TEST_F(GridActionsTest, DoesNothingOnceTheRouterIsGone)
{
    controller.reset();
    actions.click(cell);
    actions.doubleClick(rowHeader);
    actions.toggleLock(rowHeader);
    runAction(actions.accessibleActions(columnHeader), u"Route to Selected Destination"_s);
    EXPECT_TRUE(actions.menu(rowHeader).isEmpty());
}

} // namespace

} // namespace corvane
