#include "Drivers/SimulatorDriver.h"

#include "Foundation/Task.h"
#include "support/ManualQueue.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

RouterConnection simulator(qint64 sources, qint64 destinations)
{
    RouterConnection connection;
    connection.name = u"Demo"_s;
    connection.vendor = RouterVendor::simulator;
    connection.simSourceCount = sources;
    connection.simDestinationCount = destinations;
    return connection;
}

/// A simulator of 16 by 16, what it has reported, and how its commands ended.
class SimulatorDriverTest : public testing::Test {
protected:
    SimulatorDriverTest()
    {
        driver->events().consume(queue, {}, [this](RouterDriverEvent&& event) { reported.push_back(event); });
    }

    void start(std::function<QCoro::Task<>(SimulatorDriver&)> command)
    {
        startTask(queue, [this, driver = driver, command = std::move(command)]() -> QCoro::Task<> {
            try {
                co_await command(*driver);
                ++returned;
            } catch (const DriverError& error) {
                thrown.push_back(error);
            }
        });
        queue.runReady();
    }

    void connect()
    {
        start([](SimulatorDriver& simulator) { return simulator.connect(); });
        queue.advance(300ms);
        reported.clear();
        returned = 0;
    }

    ManualQueue queue;
    std::shared_ptr<SimulatorDriver> driver = std::make_shared<SimulatorDriver>(simulator(16, 16), queue);
    std::vector<RouterDriverEvent> reported;
    std::vector<DriverError> thrown;
    int returned = 0;
};

TEST_F(SimulatorDriverTest, StartsWithARouterWhoseLevelsCanBeToldApart)
{
    const auto state = simulatedState(simulator(16, 16));
    EXPECT_EQ(state.deviceName, u"Demo"_s);
    EXPECT_EQ(state.model, u"Virtual 16×16"_s);
    EXPECT_EQ(state.sources.at(7), (Port{7, PortKind::source, u"FEED 1"_s}));
    EXPECT_EQ(state.sources.at(8), (Port{8, PortKind::source, u"CAM 2"_s}));
    EXPECT_EQ(state.destinations.at(15), (Port{15, PortKind::destination, u"OUT 2"_s}));
    EXPECT_EQ(state.source(15, 0), 15);
    EXPECT_EQ(state.source(15, 2), 1);
    for (const qint64 silent : {4, 9, 14})
        EXPECT_EQ(state.inputStatus.value(silent), (InputSignalStatus{false, {}})) << silent;
    EXPECT_EQ(state.inputStatus.value(5), (InputSignalStatus{true, u"1920x1080i59.94"_s}));
}

TEST_F(SimulatorDriverTest, HasAtLeastOnePortOfEachKindAndNeverMoreThanMemoryHolds)
{
    struct Case {
        qint64 asked;
        qint64 given;
    };
    constexpr auto endless = std::numeric_limits<qint64>::max();
    for (const auto& [asked, given] : {Case{0, 1}, {-5, 1}, {1, 1}, {288, 288}, {endless, 1'000'000}})
        EXPECT_EQ(simulatedSide(asked), given) << asked;
    const auto smallest = simulatedState(simulator(0, -1));
    EXPECT_EQ(smallest.sources.size(), 1);
    EXPECT_EQ(smallest.destinations.size(), 1);
    EXPECT_EQ(smallest.source(0, 2), 0);
}

TEST_F(SimulatorDriverTest, TellsThatItStartsAndThenThatItIsUp)
{
    start([](SimulatorDriver& simulator) { return simulator.connect(); });
    const RouterDriverEvent starting = driverEvent::Status{u"Starting simulator…"_s};
    EXPECT_EQ(reported, std::vector{starting});
    queue.advance(299ms);
    EXPECT_EQ(reported.size(), 1U);
    queue.advance(1ms);
    ASSERT_EQ(reported.size(), 2U);
    EXPECT_EQ(reported.back(), RouterDriverEvent(driverEvent::Connected{simulatedState(simulator(16, 16))}));
}

TEST_F(SimulatorDriverTest, RoutesAfterAWhileAndSkipsLockedDestinationsWithoutAWord)
{
    connect();
    start([](SimulatorDriver& simulator) { return simulator.setLock(3, 0, true); });
    reported.clear();
    start([](SimulatorDriver& simulator) { return simulator.takeAll({{0, 2, 9}, {0, 3, 9}, {7, 2, 8}}); });
    queue.advance(119ms);
    EXPECT_TRUE(reported.empty());
    queue.advance(1ms);
    const std::vector<RouterDriverEvent> expected{
        driverEvent::RouteChanged{0, 2, 9}, driverEvent::RouteChanged{7, 2, 8}};
    EXPECT_EQ(reported, expected);
    EXPECT_EQ(returned, 2);
}

TEST_F(SimulatorDriverTest, RenamesOnlyPortsThatItHas)
{
    connect();
    for (const qint64 index : {15, 16, -1}) {
        start([index](SimulatorDriver& simulator) {
            return simulator.setLabel(u"Desk"_s, index, PortKind::destination);
        });
    }
    const RouterDriverEvent renamed = driverEvent::LabelChanged{PortKind::destination, 15, u"Desk"_s};
    EXPECT_EQ(reported, std::vector{renamed});
    EXPECT_EQ(returned, 3);
}

TEST_F(SimulatorDriverTest, RefusesCommandsBeforeItIsUpAndAfterItsEnd)
{
    const auto commandAll = [this] {
        thrown.clear();
        start([](SimulatorDriver& simulator) { return simulator.takeAll({}); });
        start([](SimulatorDriver& simulator) { return simulator.take(1, 1, 0); });
        start([](SimulatorDriver& simulator) { return simulator.setLock(1, 0, true); });
        start([](SimulatorDriver& simulator) { return simulator.setLabel({}, 1, PortKind::source); });
        EXPECT_EQ(thrown, std::vector(4, DriverError::notConnected()));
    };
    start([](SimulatorDriver& simulator) { return simulator.connect(); });
    commandAll();
    queue.advance(300ms);
    start([](SimulatorDriver& simulator) { return simulator.disconnect(); });
    commandAll();
}

TEST_F(SimulatorDriverTest, ItsLastWordIsThatItWentDownHoweverOftenItIsToldTo)
{
    connect();
    start([](SimulatorDriver& simulator) { return simulator.takeAll({{0, 2, 9}}); });
    start([](SimulatorDriver& simulator) { return simulator.disconnect(); });
    start([](SimulatorDriver& simulator) { return simulator.disconnect(); });
    queue.advance(1s);
    EXPECT_EQ(reported, std::vector<RouterDriverEvent>{driverEvent::Disconnected{}});
}

TEST_F(SimulatorDriverTest, DisconnectingEndsEveryWaitAtOnce)
{
    start([](SimulatorDriver& simulator) { return simulator.connect(); });
    start([](SimulatorDriver& simulator) { return simulator.disconnect(); });
    EXPECT_EQ(returned, 2);
    // And the start that was cut short does not bring it up.
    start([](SimulatorDriver& simulator) { return simulator.takeAll({}); });
    EXPECT_EQ(thrown.size(), 1U);
}

} // namespace

} // namespace corvane
