#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

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
        QString failure;
    };
    const ConnectionStatus down = corvane::Disconnected{};
    const ConnectionStatus up = corvane::Connected{};
    const Status hello{u"Hello"_s};
    const Error broken{u"Broken"_s};
    const Connected connected{matrix(1, 1)};
    const Case cases[] = {
        {"waiting", {hello, Status{u"Waiting for router… (Connection refused)"_s}}, Connecting{},
            u"Waiting for router… (Connection refused)"_s, {}, u""_s},
        {"up", {hello, connected}, up, u""_s, {}, u""_s},
        {"a resync brings it up too", {StateReplaced{matrix(1, 1)}}, up, u""_s, {}, u""_s},
        {"down for a reason", {hello, Disconnected{u"Gone"_s}}, down, u"Gone"_s, {}, u"Gone"_s},
        {"down for none", {hello, Disconnected{}}, down, u"Hello"_s, {}, u""_s},
        {"failed", {hello, broken}, ConnectionFailed{u"Broken"_s}, u""_s, u"Broken"_s, u"Broken"_s},
        {"failed, then down", {broken, Disconnected{}}, down, u""_s, u"Broken"_s, u"Broken"_s},
        {"failed, then down for a reason", {broken, Disconnected{u"Gone"_s}}, down, u"Gone"_s, u"Broken"_s,
            u"Broken"_s},
        {"failed, then up", {broken, connected}, up, u""_s, {}, u""_s},
        {"up again, then lost", {broken, connected, Disconnected{u"Gone"_s}}, down, u"Gone"_s, {}, u"Gone"_s},
        {"one command refused", {connected, CommandRefused{u"No"_s}}, up, u""_s, u"No"_s, u""_s},
        {"latest error wins", {CommandRefused{u"No"_s}, CommandRefused{u"Nor"_s}}, Connecting{}, u""_s,
            u"Nor"_s, u""_s},
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
        EXPECT_EQ(controller->connectionFailure(), c.failure);
    }
    controller->disconnect();
    EXPECT_EQ(controller->connectionFailure(), u""_s);
}

TEST_F(MatrixControllerEventsTest, EachEventChangesItsOwnFactAndIsSignalledOnlyIfItDoes)
{
    using namespace driverEvent;
    using Signals = std::vector<std::string>;
    struct Case {
        const char* name;
        RouterDriverEvent event;
        std::function<void(Snapshot&)> change;
        Signals signalled;
    };
    const auto nothing = [](Snapshot&) {};
    const InputSignalStatus present{true, u"1080p50"_s};
    const Case cases[] = {
        {"progress", Status{u"Reading…"_s}, [](auto& s) { s.statusMessage = u"Reading…"_s; }, {"changed"}},
        {"the same progress", Status{u"Live"_s}, nothing, {}},
        {"a tally", RouteChanged{0, 1, 3}, [](auto& s) { s.state.routing[0][1] = 3; }, {"crosspoint 0 1"}},
        {"a level's first tally", RouteChanged{2, 1, 3}, [](auto& s) { s.state.routing[2][1] = 3; },
            {"crosspoint 2 1"}},
        {"the same tally", RouteChanged{0, 1, 1}, nothing, {}},
        {"routed to nothing", RouteChanged{0, 1, {}}, [](auto& s) { s.state.routing[0].remove(1); },
            {"crosspoint 0 1"}},
        {"nothing was there", RouteChanged{2, 1, {}}, nothing, {}},
        {"no such destination", RouteChanged{0, 4, 1}, nothing, {}},
        {"no such level", RouteChanged{6, 1, 2}, nothing, {}},
        {"a source's name", LabelChanged{PortKind::source, 2, u"CAM"_s},
            [](auto& s) { s.state.sources[2].label = u"CAM"_s; }, {"labels"}},
        {"a destination's name", LabelChanged{PortKind::destination, 2, u"MON"_s},
            [](auto& s) { s.state.destinations[2].label = u"MON"_s; }, {"labels"}},
        {"the same name", LabelChanged{PortKind::source, 2, u"In 3"_s}, nothing, {}},
        {"no such source", LabelChanged{PortKind::source, 5, u"CAM"_s}, nothing, {}},
        {"a lock", LockChanged{2, true}, [](auto& s) { s.state.lockedDestinations.insert(2); }, {"lock 2"}},
        {"a staged one's lock", LockChanged{3, true}, [](auto& s) { s.state.lockedDestinations.insert(3); },
            {"lock 3", "changed"}},
        {"unlocked", LockChanged{1, false}, [](auto& s) { s.state.lockedDestinations.remove(1); },
            {"lock 1"}},
        {"locked already", LockChanged{1, true}, nothing, {}},
        {"a lock of nothing", LockChanged{4, true}, nothing, {}},
        {"a signal", InputStatusChanged{4, present}, [&](auto& s) { s.state.inputStatus[4] = present; },
            {"input 4"}},
        {"the same signal", InputStatusChanged{0, present}, nothing, {}},
        {"another signal", InputStatusChanged{0, InputSignalStatus{}},
            [](auto& s) { s.state.inputStatus[0] = {}; }, {"input 0"}},
        {"no signal known", InputStatusChanged{0, {}}, [](auto& s) { s.state.inputStatus.remove(0); },
            {"input 0"}},
        {"none was known", InputStatusChanged{4, {}}, nothing, {}},
        {"no such input", InputStatusChanged{5, present}, nothing, {}},
        {"lost", driverEvent::Disconnected{}, [](auto& s) { s.status = corvane::Disconnected{}; },
            {"changed"}},
        {"failed", Error{u"Broken"_s},
            [](auto& s) {
                s.status = ConnectionFailed{u"Broken"_s};
                s.lastError = s.connectionFailure = u"Broken"_s;
                s.statusMessage.clear();
            },
            {"changed"}},
        {"refused", CommandRefused{u"No"_s}, [](auto& s) { s.lastError = u"No"_s; }, {"changed"}},
        {"refused for the same", CommandRefused{u"Old"_s}, nothing, {}},
    };
    auto state = matrix(5, 4);
    state.levels.append({2, u"Audio"_s, LevelKind::audio});
    state.lockedDestinations = {1};
    state.inputStatus.insert(0, present);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        connectTo(state);
        report(Status{u"Live"_s});
        controller->setLastError(u"Old"_s);
        controller->setPendingDestination(3);
        SignalLog log(*controller);
        auto expected = snapshot(*controller);
        c.change(expected);
        report(c.event);
        EXPECT_EQ(snapshot(*controller), expected);
        EXPECT_EQ(log.taken(), c.signalled);
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

TEST_F(MatrixControllerEventsTest, AResyncKeepsWhatStillExists)
{
    connectTo(matrix(8, 8, 2));
    controller->setMultiSelectMode(true);
    controller->setBreakawayLevels({0, 1});
    for (const qint64 destination : {2, 3, 5})
        controller->toggleDestinationInGang(destination);
    controller->focusSource(6);
    controller->setPendingDestinations({3, 5});
    controller->setPendingDestination(5);
    controller->setPendingSource(7);
    controller->setPrimaryLevel(1);
    auto expected = controller->operatorState();
    report(driverEvent::StateReplaced{matrix(9, 9, 2)});
    EXPECT_EQ(controller->operatorState(), expected);

    report(driverEvent::StateReplaced{matrix(5, 5, 1)});
    expected.selection = {0, {0, 2, 3}, 0};
    expected.breakawayLevels = {0};
    expected.primaryLevel = 0;
    // What is staged as one route stays until it is cleared.
    expected.staging = {5, 7, {3}};
    EXPECT_EQ(controller->operatorState(), expected);
}

TEST_F(MatrixControllerEventsTest, ANewPictureIsSignalledOnceAndWhole)
{
    controller->connect();
    bool isWhole = false;
    QObject::connect(controller.get(), &MatrixController::stateReplaced, controller.get(), [&] {
        isWhole = controller->isConnected() && controller->selectedDestination() == 0
            && controller->visibleSources().size() == 4 && controller->lastError() == std::nullopt;
    });
    controller->setLastError(u"old"_s);
    SignalLog log(*controller);
    report(driverEvent::Connected{matrix(4, 4)});
    EXPECT_TRUE(isWhole);
    EXPECT_THAT(log.taken(), ElementsAre("state", "visible ports", "changed"));
    report(driverEvent::StateReplaced{matrix(4, 4)});
    EXPECT_THAT(log.taken(), IsEmpty());
}

TEST_F(MatrixControllerEventsTest, AnObserverMayReconnectFromWithinAnEvent)
{
    connectTo(matrix(1, 1));
    QObject::connect(controller.get(), &MatrixController::changed, controller.get(), [this] {
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
