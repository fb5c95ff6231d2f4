#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class MatrixControllerRoutingTest : public ControllerTest {
protected:
    MatrixControllerRoutingTest() { connectTo(matrix(10, 10)); }

    void gang(const QList<qint64>& destinations)
    {
        controller->deselectAllInGang();
        for (const auto destination : destinations)
            controller->toggleDestinationInGang(destination);
    }

    [[nodiscard]] const Staging& staging() const { return controller->operatorState().staging; }
};

TEST_F(MatrixControllerRoutingTest, ACommandThatCannotBeSentIsTakenBack)
{
    auto state = matrix(10, 10, 3);
    state.routing[1].remove(5);
    state.lockedDestinations = {7};
    struct Case {
        std::function<void(MatrixController&)> command;
        std::exception_ptr failure;
        const char* call;
        const char* error;
    };
    Salvo salvo;
    salvo.routes = {{1, 5, 0}, {0, 1, 3}};
    const auto dropped = std::make_exception_ptr(DriverError::notConnected());
    const auto noLocks = std::make_exception_ptr(DriverError::unsupported(feature::locking));
    const auto other = std::make_exception_ptr(std::runtime_error("no memory"));
    const auto* const gone = "Not connected to the router.";
    const Case cases[] = {
        {[](auto& c) { c.take(3, 5); }, dropped, "takeAll 0:5<3 1:5<3 2:5<3", gone},
        {[](auto& c) { c.take(3, 5); }, other, "takeAll 0:5<3 1:5<3 2:5<3", "no memory"},
        {[&](auto& c) { c.fireSalvo(salvo); }, dropped, "takeAll 1:5<0 0:1<3", gone},
        {[](auto& c) { c.toggleLock(7); }, dropped, "setLock 7 2 false", gone},
        {[](auto& c) { c.toggleLock(1); }, noLocks, "setLock 1 2 true",
            "Locking isn't supported by this router."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.call);
        connectTo(state);
        controller->setPrimaryLevel(2);
        report(driverEvent::Disconnected{});
        driver().failure = c.failure;
        auto expected = snapshot(*controller);
        c.command(*controller);
        EXPECT_NE(controller->state(), state);
        EXPECT_THAT(told(), ElementsAre(c.call));
        expected.lastError = QString::fromUtf8(c.error);
        EXPECT_EQ(snapshot(*controller), expected);
    }
}

TEST_F(MatrixControllerRoutingTest, WhatAnObserverDoesUponACommandIsSentAfterIt)
{
    Salvo salvo;
    salvo.routes = {{0, 5, 4}};
    const std::function<void()> commands[] = {
        [&] { controller->take(4, 5); },
        [&] { controller->fireSalvo(salvo); },
        [&] { controller->toggleLock(5); },
        [&] { controller->rename(PortKind::source, 4, u"Desk"_s); },
    };
    for (const auto& command : commands) {
        connectTo(matrix(10, 10));
        const QObject observer;
        const auto answer = [&] { controller->take(1, 2); };
        QObject::connect(controller.get(), &MatrixController::crosspointChanged, &observer,
            [&](qint64, qint64 destination) {
                if (destination == 5)
                    answer();
            });
        QObject::connect(controller.get(), &MatrixController::lockChanged, &observer, answer);
        QObject::connect(controller.get(), &MatrixController::labelsChanged, &observer, answer);
        command();
        const auto calls = told();
        ASSERT_EQ(calls.size(), 2U);
        EXPECT_EQ(calls.back(), "takeAll 0:2<1");
    }
}

TEST_F(MatrixControllerRoutingTest, TakingBackRestoresWhatItSawWhateverWasTakenSince)
{
    driver().failWith(DriverError::transport(u"cut"_s));
    controller->take(3, 5);
    controller->take(4, 5);
    EXPECT_THAT(told(), ElementsAre("takeAll 0:5<3", "takeAll 0:5<4"));
    EXPECT_EQ(controller->state().source(5, 0), 3);
}

TEST_F(MatrixControllerRoutingTest, WithoutADriverTheLocalChangeStays)
{
    controller->disconnect();
    Salvo salvo;
    salvo.routes = {{0, 4, 2}};
    controller->take(3, 5);
    controller->fireSalvo(salvo);
    controller->toggleLock(6);
    queue.runReady();
    EXPECT_EQ(controller->state().source(5, 0), 3);
    EXPECT_EQ(controller->state().source(4, 0), 2);
    EXPECT_TRUE(controller->state().isLocked(6));
    EXPECT_EQ(controller->lastError(), std::nullopt);
}

TEST_F(MatrixControllerRoutingTest, ALockedDestinationIsNamedByItsPositionAndNotRouted)
{
    struct Case {
        qint64 destination;
        QString message;
    };
    auto state = matrix(2, 3);
    state.destinations[1].index = 20;
    state.lockedDestinations = {0, 1, 2, 3, 20, -1, std::numeric_limits<qint64>::max()};
    connectTo(state);
    for (const auto& [destination, message] : {Case{0, u"Out 1 is locked."_s}, {1, u"Out 2 is locked."_s},
             {2, u"Out 3 is locked."_s}, {3, u"Destination is locked."_s}, {20, u"Destination is locked."_s},
             {-1, u"Destination is locked."_s},
             {std::numeric_limits<qint64>::max(), u"Destination is locked."_s}}) {
        controller->take(0, destination);
        EXPECT_EQ(lastError(), message);
    }
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_EQ(controller->state(), state);
}

TEST_F(MatrixControllerRoutingTest, ALockedDestinationIsNamedWhenItIsToBeStagedAndNotStaged)
{
    using Gestures = std::function<void(MatrixController&)>;
    struct Case {
        const char* name;
        Gestures stage;
        Staging staging;
        bool isRefused;
    };
    const auto gangOf = [this](const QList<qint64>& destinations) {
        return [=, this](auto& c) {
            gang(destinations);
            c.chooseSource(1);
        };
    };
    const Case cases[] = {
        {"a cell", [](auto& c) { c.stageRoute(1, 5); }, {}, true},
        {"another cell", [](auto& c) { c.stageRoute(1, 4); }, {4, 1, {}}, false},
        {"selected first", [](auto& c) { c.focusDestination(5), c.chooseSource(1); }, {5, {}, {}}, true},
        {"in a gang", gangOf({5, 2, 8}), {{}, 1, {2, 8}}, true},
        {"in a gang of two", gangOf({5, 2}), {2, 1, {}}, true},
        {"joining later", [](auto& c) { c.stageRoute(1, 4), c.toggleDestinationInGang(5); }, {{}, 1, {}},
            true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        connectTo(matrix(10, 10));
        controller->setTakeMode(TakeMode::confirm);
        controller->deselectAllInGang();
        report(driverEvent::LockChanged{5, true});
        c.stage(*controller);
        EXPECT_EQ(staging(), c.staging);
        EXPECT_EQ(lastError(), c.isRefused ? u"Out 6 is locked."_s : u""_s);
    }
}

TEST_F(MatrixControllerRoutingTest, WhatIsStagedAndLockedSinceIsListedAndLeftOutOfTheTake)
{
    controller->setTakeMode(TakeMode::confirm);
    gang({1, 2, 5});
    controller->chooseSource(6);
    EXPECT_THAT(controller->lockedPendingDestinations(), IsEmpty());
    report(driverEvent::LockChanged{7, true});
    report(driverEvent::LockChanged{5, true});
    report(driverEvent::LockChanged{1, true});
    EXPECT_THAT(controller->lockedPendingDestinations(), ElementsAre(1, 5));
    controller->confirmTake();
    EXPECT_THAT(told(), ElementsAre("takeAll 0:2<6"));
    EXPECT_EQ(lastError(), u"Out 6 is locked."_s);
    EXPECT_FALSE(controller->hasStaging());
    controller->selectDestination(7);
    EXPECT_THAT(controller->lockedPendingDestinations(), ElementsAre(7));
}

TEST_F(MatrixControllerRoutingTest, AClickInConfirmModeStagesAndOnlyACompleteTakeIsSent)
{
    controller->selectDestination(4);
    EXPECT_FALSE(controller->hasStaging());
    controller->setTakeMode(TakeMode::confirm);
    controller->focusDestination(4);
    EXPECT_EQ(staging(), (Staging{4, {}, {}}));
    controller->confirmTake();
    EXPECT_EQ(staging(), (Staging{4, {}, {}}));
    controller->chooseSource(6);
    EXPECT_EQ(staging(), (Staging{4, 6, {}}));
    controller->selectDestination(3);
    EXPECT_EQ(staging(), (Staging{3, {}, {}}));
    gang({1, 2});
    controller->focusDestination(5);
    EXPECT_THAT(controller->selectedDestinations(), IsEmpty());
    gang({1, 2});
    controller->chooseSource(6);
    EXPECT_EQ(staging(), (Staging{{}, 6, {1, 2}}));
    EXPECT_THAT(told(), IsEmpty());
    controller->confirmTake();
    EXPECT_THAT(told(), ElementsAre("takeAll 0:1<6", "takeAll 0:2<6"));
    EXPECT_FALSE(controller->hasStaging());
}

TEST_F(MatrixControllerRoutingTest, AStagedSourceFollowsTheGang)
{
    controller->setTakeMode(TakeMode::confirm);
    gang({1, 2});
    controller->chooseSource(3);
    controller->toggleDestinationInGang(2);
    EXPECT_EQ(staging(), (Staging{1, 3, {}}));
    controller->toggleDestinationInGang(5);
    EXPECT_EQ(staging(), (Staging{{}, 3, {1, 5}}));
    controller->deselectAllInGang();
    controller->toggleDestinationInGang(4);
    EXPECT_EQ(staging(), Staging());
}

TEST_F(MatrixControllerRoutingTest, LeavingAModeDropsWhatBelongsToIt)
{
    using enum TakeMode;
    using enum RoutingDirection;
    struct Case {
        TakeMode takeMode;
        std::function<void(MatrixController&)> change;
        /// Any of "gang", "focus", "multi" and "staging".
        QString dropped;
    };
    const Case cases[] = {
        {confirm, [](auto& c) { c.setMultiSelectMode(true); }, u""_s},
        {confirm, [](auto& c) { c.setMultiSelectMode(false); }, u"gang multi staging"_s},
        {immediate, [](auto& c) { c.setMultiSelectMode(false); }, u"gang multi"_s},
        {confirm, [](auto& c) { c.setDirection(destinationLed); }, u"gang multi staging"_s},
        {immediate, [](auto& c) { c.setDirection(sourceLed); }, u"gang multi staging"_s},
        {confirm, [](auto& c) { c.setTakeMode(confirm); }, u""_s},
        {confirm, [](auto& c) { c.setTakeMode(immediate); }, u"staging"_s},
        {confirm, [](auto& c) { c.deselectAllInGang(); }, u"gang focus staging"_s},
        {immediate, [](auto& c) { c.deselectAllInGang(); }, u"gang focus"_s},
        {confirm, [](auto& c) { c.setViewMode(RouteViewMode::list); }, u""_s},
        {confirm, [](auto& c) { c.setBreakawayLevels({0}); }, u""_s},
    };
    for (const auto& [takeMode, change, dropped] : cases) {
        SCOPED_TRACE(&change - &cases[0].change);
        controller = makeController();
        connectTo(matrix(10, 10));
        controller->setTakeMode(takeMode);
        controller->setMultiSelectMode(true);
        gang({1, 2});
        controller->setPendingDestinations({1, 2});
        controller->setPendingDestination(4);
        controller->setPendingSource(3);
        const auto before = controller->operatorState();
        change(*controller);
        const auto& after = controller->operatorState();
        EXPECT_EQ(after.multiSelectMode, !dropped.contains(u"multi"_s));
        EXPECT_EQ(after.staging, dropped.contains(u"staging"_s) ? Staging() : before.staging);
        auto selection = before.selection;
        if (dropped.contains(u"gang"_s))
            selection.destinations.clear();
        if (dropped.contains(u"focus"_s))
            selection.destination.reset();
        EXPECT_EQ(after.selection, selection);
    }
}

TEST_F(MatrixControllerRoutingTest, SourceLedDestinationsAreAssignedAtOnceOrStaged)
{
    controller->setDirection(RoutingDirection::sourceLed);
    controller->focusSource(6);
    controller->toggleDestinationInGang(3);
    EXPECT_THAT(controller->selectedDestinations(), IsEmpty());
    controller->assignDestination(3);
    EXPECT_THAT(told(), ElementsAre("takeAll 0:3<6"));

    controller->setTakeMode(TakeMode::confirm);
    report(driverEvent::LockChanged{5, true});
    for (const qint64 destination : {2, 4, 5, 8, 4})
        controller->assignDestination(destination);
    EXPECT_EQ(staging(), (Staging{{}, {}, {2, 8}}));
    EXPECT_EQ(controller->lastError(), std::nullopt);
    report(driverEvent::LockChanged{8, true});
    controller->assignDestination(8);
    EXPECT_EQ(staging(), (Staging{{}, {}, {2}}));
    controller->assignDestination(1);
    controller->confirmTake();
    EXPECT_THAT(told(), ElementsAre("takeAll 0:1<6", "takeAll 0:2<6"));
    controller->assignDestination(2);
    controller->focusSource(7);
    EXPECT_FALSE(controller->hasStaging());
}

TEST_F(MatrixControllerRoutingTest, AllDestinationsAreThoseThatAreNotLocked)
{
    connectTo(matrix(4, 4));
    report(driverEvent::LockChanged{1, true});
    controller->selectAllInGang();
    EXPECT_THAT(controller->selectedDestinations(), IsEmpty());
    controller->setMultiSelectMode(true);
    controller->selectAllInGang();
    EXPECT_EQ(controller->selectedDestinations(), (QSet<qint64>{0, 2, 3}));
    EXPECT_TRUE(controller->allGanged());
    report(driverEvent::LockChanged{1, false});
    EXPECT_FALSE(controller->allGanged());

    controller->setPendingDestination(2);
    controller->selectAllDestinations();
    EXPECT_EQ(controller->takeMode(), TakeMode::immediate);
    controller->setDirection(RoutingDirection::sourceLed);
    EXPECT_FALSE(controller->multiSelectMode());
    EXPECT_THAT(controller->selectedDestinations(), IsEmpty());
    controller->selectAllDestinations();
    EXPECT_EQ(controller->takeMode(), TakeMode::confirm);
    EXPECT_EQ(staging(), (Staging{{}, {}, {0, 1, 2, 3}}));
    EXPECT_TRUE(controller->allDestinationsStaged());
    for (const qint64 destination : {0, 1, 2, 3})
        report(driverEvent::LockChanged{destination, true});
    EXPECT_FALSE(controller->allGanged());
    EXPECT_FALSE(controller->allDestinationsStaged());
}

TEST_F(MatrixControllerRoutingTest, AnOperationIsToldWhenAllOfItIsDone)
{
    controller->setTakeMode(TakeMode::confirm);
    gang({1, 2});
    controller->chooseSource(6);
    std::vector<std::string> told;
    const auto note = [&](const char* what) {
        const bool isDone = !controller->hasStaging() && controller->state().source(1, 0) == 6
            && controller->state().source(2, 0) == 6;
        told.push_back(std::string(what) + (isDone ? "" : " too early"));
    };
    QObject::connect(controller.get(), &MatrixController::crosspointChanged, controller.get(),
        [&] { note("crosspoint"); });
    QObject::connect(
        controller.get(), &MatrixController::changed, controller.get(), [&] { note("changed"); });
    controller->confirmTake();
    EXPECT_THAT(told, ElementsAre("crosspoint", "crosspoint", "changed"));
}

} // namespace

} // namespace corvane
