#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::Pair;

class MatrixControllerEventsTest : public ControllerTest { };

TEST_F(MatrixControllerEventsTest, StatusFollowsWhatTheDriverSaysOfTheLink)
{
    using driverEvent::CommandRefused, driverEvent::Connected, driverEvent::Disconnected, driverEvent::Error,
        driverEvent::StateReplaced, driverEvent::Status;
    struct Case {
        const char* name;
        std::vector<RouterDriverEvent> events;
        ConnectionStatus status;
        QString message;
        std::optional<QString> error;
    };
    const ConnectionStatus down = corvane::Disconnected{};
    const ConnectionStatus up = corvane::Connected{};
    const Case cases[] = {
        {"up", {Status{u"Hello"_s}, Connected{matrix(1, 1)}}, up, u""_s, {}},
        {"a resync brings it up too", {StateReplaced{matrix(1, 1)}}, up, u""_s, {}},
        {"down for a reason", {Status{u"Hello"_s}, Disconnected{u"Gone"_s}}, down, u"Gone"_s, {}},
        {"down for none", {Status{u"Hello"_s}, Disconnected{}}, down, u"Hello"_s, {}},
        {"failed", {Status{u"Hello"_s}, Error{u"Broken"_s}}, ConnectionFailed{u"Broken"_s}, u""_s,
            u"Broken"_s},
        {"failed, then down", {Error{u"Broken"_s}, Disconnected{}}, down, u""_s, u"Broken"_s},
        {"failed, then up", {Error{u"Broken"_s}, Connected{matrix(1, 1)}}, up, u""_s, {}},
        {"one command refused", {Connected{matrix(1, 1)}, CommandRefused{u"No"_s}}, up, u""_s, u"No"_s},
        {"latest error wins", {CommandRefused{u"No"_s}, CommandRefused{u"Nor"_s}}, Connecting{}, u""_s,
            u"Nor"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        controller = makeController();
        controller->connect();
        for (const auto& event : c.events)
            report(event);
        EXPECT_EQ(controller->status(), c.status);
        EXPECT_EQ(controller->statusMessage(), c.message);
        EXPECT_EQ(controller->lastError(), c.error);
    }
}

TEST_F(MatrixControllerEventsTest, ARouterFirstShowsItsFirstPortsAndItsFirstLevel)
{
    auto state = matrix(2, 2);
    state.sources[0].index = 7;
    state.destinations[0].index = 8;
    state.levels = {{4, {}, {}}, {0, {}, {}}};
    connectTo(state);
    EXPECT_EQ(controller->selectedSource(), 7);
    EXPECT_EQ(controller->selectedDestination(), 8);
    EXPECT_EQ(controller->primaryLevel(), 0);
    state.levels.removeLast();
    report(driverEvent::StateReplaced{state});
    EXPECT_EQ(controller->primaryLevel(), 4);
    report(driverEvent::StateReplaced{RouterState()});
    EXPECT_EQ(controller->primaryLevel(), 0);
    EXPECT_EQ(controller->selectedSource(), std::nullopt);
}

TEST_F(MatrixControllerEventsTest, AResyncKeepsOnlySelectionsThatStillExist)
{
    connectTo(matrix(8, 8, 2));
    controller->setMultiSelectMode(true);
    controller->setBreakawayLevels({0, 1});
    for (const qint64 destination : {2, 3, 5})
        controller->toggleDestinationInGang(destination);
    controller->setPendingDestinations({3, 5});
    controller->setPendingDestination(5);
    controller->setPendingSource(7);
    controller->setPrimaryLevel(1);

    report(driverEvent::StateReplaced{matrix(5, 5, 1)});
    EXPECT_EQ(controller->selectedDestination(), 0);
    EXPECT_EQ(controller->selectedDestinations(), (QSet<qint64>{0, 2, 3}));
    EXPECT_EQ(controller->pendingDestinations(), QSet<qint64>{3});
    EXPECT_EQ(controller->breakawayLevels(), QSet<qint64>{0});
    EXPECT_EQ(controller->primaryLevel(), 0);
    // What is staged for one destination survives until it is cleared.
    EXPECT_EQ(controller->pendingDestination(), 5);
    EXPECT_EQ(controller->pendingSource(), 7);
}

TEST_F(MatrixControllerEventsTest, ANewPictureIsToldOnceAndWhole)
{
    controller->connect();
    bool isWhole = false;
    QObject::connect(controller.get(), &MatrixController::stateReplaced, controller.get(), [&] {
        isWhole = controller->isConnected() && controller->selectedDestination() == 0
            && controller->visibleSources().size() == 4 && controller->lastError() == std::nullopt;
    });
    Telling replaced(*controller, &MatrixController::stateReplaced);
    Telling visible(*controller, &MatrixController::visiblePortsChanged);
    Telling selection(*controller, &MatrixController::selectionChanged);
    controller->setLastError(u"old"_s);
    report(driverEvent::Connected{matrix(4, 4)});
    EXPECT_TRUE(isWhole);
    EXPECT_EQ(replaced.count(), 1);
    EXPECT_EQ(visible.count(), 1);
    EXPECT_EQ(selection.count(), 1);

    report(driverEvent::StateReplaced{matrix(4, 4)});
    EXPECT_EQ(replaced.count(), 0);
    EXPECT_EQ(visible.count(), 0);
}

TEST_F(MatrixControllerEventsTest, TellsOfEachTallyThatReallyChanged)
{
    using driverEvent::RouteChanged;
    connectTo(matrix(4, 4));
    std::vector<std::pair<qint64, qint64>> tallies;
    QObject::connect(controller.get(), &MatrixController::crosspointChanged, controller.get(),
        [&](qint64 level, qint64 destination) { tallies.emplace_back(level, destination); });
    report(RouteChanged{0, 1, 3});
    EXPECT_EQ(controller->state().source(1, 0), 3);
    report(RouteChanged{0, 1, 3});
    EXPECT_THAT(tallies, ElementsAre(Pair(0, 1)));
    report(RouteChanged{6, 1, 2});
    report(RouteChanged{0, 1, {}});
    report(RouteChanged{0, 1, {}});
    report(RouteChanged{9, 1, {}});
    EXPECT_THAT(tallies, ElementsAre(Pair(0, 1), Pair(6, 1), Pair(0, 1)));
    EXPECT_EQ(controller->state().source(1, 6), 2);
    EXPECT_EQ(controller->state().source(1, 0), std::nullopt);
    EXPECT_FALSE(controller->state().routing.contains(9));
}

TEST_F(MatrixControllerEventsTest, TellsOfEachLockAndSignalThatReallyChanged)
{
    using driverEvent::InputStatusChanged, driverEvent::LockChanged;
    connectTo(matrix(4, 4));
    std::vector<qint64> locks;
    std::vector<qint64> inputs;
    QObject::connect(controller.get(), &MatrixController::lockChanged, controller.get(),
        [&](qint64 destination) { locks.push_back(destination); });
    QObject::connect(controller.get(), &MatrixController::inputStatusChanged, controller.get(),
        [&](qint64 input) { inputs.push_back(input); });
    for (const bool isLocked : {false, true, true, false})
        report(LockChanged{2, isLocked});
    EXPECT_THAT(locks, ElementsAre(2, 2));

    const InputSignalStatus present{true, u"1080p50"_s};
    for (const auto& status : {std::optional<InputSignalStatus>(), {present}, {present}, {{false, {}}}, {}})
        report(InputStatusChanged{3, status});
    EXPECT_THAT(inputs, ElementsAre(3, 3, 3));
    EXPECT_FALSE(controller->state().inputStatus.contains(3));
}

TEST_F(MatrixControllerEventsTest, AnObserverMayReconnectFromWithinAnEvent)
{
    connectTo(matrix(1, 1));
    QObject::connect(controller.get(), &MatrixController::statusChanged, controller.get(), [this] {
        if (controller->status() == ConnectionStatus(Disconnected{}))
            controller->connect();
    });
    driver().report(driverEvent::Disconnected{});
    driver().report(driverEvent::Error{u"from the dead"_s});
    queue.runReady();
    EXPECT_EQ(drivers.size(), 2U);
    EXPECT_EQ(controller->status(), ConnectionStatus(Connecting{}));
    EXPECT_EQ(controller->lastError(), std::nullopt);
}

} // namespace

} // namespace corvane
