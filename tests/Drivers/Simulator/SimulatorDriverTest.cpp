#include "Drivers/Simulator/SimulatorDriver.h"

#include "Drivers/EventText.h"
#include "Foundation/Task.h"
#include "support/ManualQueue.h"

namespace corvane {

namespace {

RouterConnection simulator(qint64 sources, qint64 destinations)
{
    RouterConnection connection;
    connection.name = u"Demo"_s;
    connection.vendor = RouterVendor::simulator;
    connection.simSourceCount = sources;
    connection.simDestinationCount = destinations;
    return connection;
}

/// A simulator of 9 by 9, what it has reported, and how its commands ended.
class SimulatorDriverTest : public testing::Test {
protected:
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

    void startConnecting()
    {
        start([](SimulatorDriver& running) { return running.connect(); });
    }

    void disconnect()
    {
        start([](SimulatorDriver& running) { return running.disconnect(); });
    }

    void connect()
    {
        startConnecting();
        queue.advance(300ms);
        (void)log.takeNew();
        returned = 0;
    }

    ManualQueue queue;
    std::shared_ptr<SimulatorDriver> driver = std::make_shared<SimulatorDriver>(simulator(9, 9), queue);
    EventLog log{driver->events(), queue};
    std::vector<DriverError> thrown;
    int returned = 0;
};

TEST_F(SimulatorDriverTest, TellsThatItStartsAndThenOfARouterWhoseLevelsCanBeToldApart)
{
    startConnecting();
    EXPECT_THAT(log.takeNew(), ElementsAre("status Starting simulator…"));
    queue.advance(299ms);
    EXPECT_THAT(log.takeNew(), IsEmpty());
    queue.advance(1ms);
    EXPECT_THAT(log.takeNew(),
        ElementsAre("connected simulator \"Demo\" \"Virtual 9×9\" "
                    "[CAM 1|VTR 1|GFX 1|SRV 1|EVS 1|RMT 1|SAT 1|FEED 1|CAM 2] "
                    "[MON 1|MV 1|REC 1|AUX 1|PGM 1|PVW 1|STR 1|OUT 1|MON 2] "
                    "routes 0=0 1=1 2=2 3=3 4=4 5=5 6=6 7=7 8=8 "
                    "level 0 Video level 1 Audio 1 level 2 Audio 2 routing of 3 levels "
                    "input 0 present 1920x1080p59.94 input 1 present 1920x1080i59.94 "
                    "input 2 present 3840x2160p29.97 input 3 present 1280x720p59.94 input 4 absent  "
                    "input 5 present 1920x1080i59.94 input 6 present 3840x2160p29.97 "
                    "input 7 present 1280x720p59.94 input 8 present 1920x1080p59.94"));
    const auto state = simulatedState(simulator(16, 16));
    for (const qint64 level : {0, 1, 2}) {
        EXPECT_EQ(state.levels.at(level).kind, level == 0 ? LevelKind::video : LevelKind::audio);
        EXPECT_EQ(state.source(15, level), (15 + level) % 16);
    }
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

TEST_F(SimulatorDriverTest, RoutesAfterAWhileAndSkipsLockedDestinationsWithoutAWord)
{
    connect();
    for (const bool locked : {true, true, false, true})
        start([locked](SimulatorDriver& running) { return running.setLock(3, 0, locked); });
    EXPECT_THAT(log.takeNew(), ElementsAre("lock 3", "lock 3", "unlock 3", "lock 3"));
    start([](SimulatorDriver& running) { return running.takeAll({{0, 2, 9}, {0, 3, 9}, {7, 2, 8}}); });
    start([](SimulatorDriver& running) { return running.take(5, 6, 1); });
    queue.advance(119ms);
    EXPECT_THAT(log.takeNew(), IsEmpty());
    queue.advance(1ms);
    EXPECT_THAT(log.takeNew(), ElementsAre("route 0:2=9", "route 7:2=8", "route 1:6=5"));
    EXPECT_EQ(returned, 6);
}

TEST_F(SimulatorDriverTest, RenamesOnlyPortsThatItHas)
{
    connect();
    for (const auto kind : {PortKind::source, PortKind::destination}) {
        for (const qint64 index : {8, 0, 9, -1})
            start([=](SimulatorDriver& running) { return running.setLabel(u"Desk"_s, index, kind); });
    }
    EXPECT_THAT(log.takeNew(),
        ElementsAre("label source 8 Desk", "label source 0 Desk", "label destination 8 Desk",
            "label destination 0 Desk"));
    EXPECT_EQ(returned, 8);
}

TEST_F(SimulatorDriverTest, ItsLastWordIsThatItWentDownHoweverOftenItIsToldTo)
{
    connect();
    start([](SimulatorDriver& running) { return running.takeAll({{0, 2, 9}}); });
    disconnect();
    disconnect();
    queue.advance(1s);
    EXPECT_THAT(log.takeNew(), ElementsAre("disconnected"));
}

TEST_F(SimulatorDriverTest, DisconnectingEndsEveryWaitAtOnce)
{
    startConnecting();
    disconnect();
    EXPECT_EQ(returned, 2);
    // And the start that was cut short does not bring it up.
    start([](SimulatorDriver& running) { return running.takeAll({}); });
    EXPECT_EQ(thrown.size(), 1U);
}

} // namespace

} // namespace corvane
