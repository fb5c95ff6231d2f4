#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class MatrixControllerRoutingTest : public ControllerTest {
protected:
    MatrixControllerRoutingTest() { connectTo(matrix(10, 10)); }

    void gang(std::initializer_list<qint64> destinations)
    {
        controller->deselectAllInGang();
        for (const auto destination : destinations)
            controller->toggleDestinationInGang(destination);
    }

    [[nodiscard]] Staging staging() const
    {
        return {
            controller->pendingDestination(), controller->pendingSource(), controller->pendingDestinations()};
    }
};

TEST_F(MatrixControllerRoutingTest, ATakeShowsAtOnceAndIsSentOnALaterTurn)
{
    controller->take(3, 5);
    EXPECT_EQ(controller->state().source(5, 0), 3);
    EXPECT_THAT(driver().calls, IsEmpty());
    EXPECT_THAT(told(), ElementsAre("takeAll 0:5<3"));
    EXPECT_EQ(controller->state().source(5, 0), 3);
}

TEST_F(MatrixControllerRoutingTest, ATakeThatCannotBeSentIsTakenBackOnEachLevel)
{
    auto state = matrix(10, 10, 2);
    state.routing[1].remove(5);
    connectTo(state);
    driver().failure = DriverError::notConnected();
    controller->take(3, 5);
    EXPECT_EQ(controller->state().source(5, 1), 3);
    EXPECT_THAT(told(), ElementsAre("takeAll 0:5<3 1:5<3"));
    EXPECT_EQ(controller->state(), state);
    EXPECT_EQ(lastError(), u"Not connected to the router."_s);
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
    driver().failure = DriverError::transport(u"cut"_s);
    controller->take(3, 5);
    controller->take(4, 5);
    EXPECT_THAT(told(), ElementsAre("takeAll 0:5<3", "takeAll 0:5<4"));
    EXPECT_EQ(controller->state().source(5, 0), 3);
}

TEST_F(MatrixControllerRoutingTest, WithoutADriverTheLocalChangeStays)
{
    controller->disconnect();
    controller->take(3, 5);
    controller->toggleLock(6);
    queue.runReady();
    EXPECT_EQ(controller->state().source(5, 0), 3);
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
    state.lockedDestinations = {1, 2, 3, 20, -1, std::numeric_limits<qint64>::max()};
    connectTo(state);
    for (const auto& [destination, message] :
        {Case{1, u"Out 2 is locked."_s}, {2, u"Out 3 is locked."_s}, {3, u"Destination is locked."_s},
            {20, u"Destination is locked."_s}, {-1, u"Destination is locked."_s},
            {std::numeric_limits<qint64>::max(), u"Destination is locked."_s}}) {
        controller->take(0, destination);
        EXPECT_EQ(lastError(), message);
    }
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_EQ(controller->state(), state);
}

TEST_F(MatrixControllerRoutingTest, AGangIsTakenOneByOneInAscendingOrder)
{
    gang({7, 2, 5});
    report(driverEvent::LockChanged{5, true});
    controller->chooseSource(1);
    EXPECT_THAT(told(), ElementsAre("takeAll 0:2<1", "takeAll 0:7<1"));
    EXPECT_EQ(lastError(), u"Out 6 is locked."_s);
}

TEST_F(MatrixControllerRoutingTest, ALockShowsAtOnceIsSentOnThePrimaryLevelAndGoesIfItCannotBe)
{
    connectTo(matrix(4, 4, 3));
    controller->setPrimaryLevel(2);
    controller->toggleLock(1);
    EXPECT_TRUE(controller->state().isLocked(1));
    EXPECT_THAT(told(), ElementsAre("setLock 1 2 true"));
    driver().failure = DriverError::unsupported(feature::locking);
    controller->toggleLock(1);
    EXPECT_FALSE(controller->state().isLocked(1));
    EXPECT_THAT(told(), ElementsAre("setLock 1 2 false"));
    EXPECT_TRUE(controller->state().isLocked(1));
    EXPECT_EQ(lastError(), u"Locking isn't supported by this router."_s);
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
    controller->setMultiSelectMode(true);
    controller->setMultiSelectMode(false);
    EXPECT_FALSE(controller->hasStaging());
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
    controller->confirmTake();
    EXPECT_THAT(told(), ElementsAre("takeAll 0:2<6", "takeAll 0:8<6"));
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
    controller->setTakeMode(TakeMode::confirm);
    EXPECT_TRUE(controller->hasStaging());
    controller->setTakeMode(TakeMode::immediate);
    EXPECT_FALSE(controller->hasStaging());

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
        controller.get(), &MatrixController::stagingChanged, controller.get(), [&] { note("staging"); });
    controller->confirmTake();
    EXPECT_THAT(told, ElementsAre("crosspoint", "crosspoint", "staging"));
}

} // namespace

} // namespace corvane
