#include "Drivers/SWP08Driver.h"
#include "Drivers/InterrogatingDriverFixture.h"

namespace corvane {

namespace {

using namespace std::chrono_literals;
using emulator::SWP08Emulator;
using emulator::SWP08Quirks;
using testing::ElementsAre;
using testing::IsEmpty;

using Form = SWP08Quirks::Form;

const std::string routeRefused = "refused The router refused the route (NAK).";

class SWP08DriverTest : public InterrogatingDriverFixture<SWP08Driver, SWP08Emulator> {
protected:
    static QByteArray hex(const char* digits) { return QByteArray::fromHex(digits); }
};

TEST_F(SWP08DriverTest, ConnectsToRoutersOfEveryKind)
{
    struct Case {
        const char* name;
        SWP08Quirks quirks;
        int pieceSize = 0;
        bool isWarned = false;
    };
    const Case cases[] = {
        {"plain", {}},
        {"answers as to a connect", {.answerForm = Form::Connected}},
        {"acknowledged behind the answer", {.acknowledgeLast = true}},
        {"highest first, all in one packet", {.answerTogether = true, .highestFirst = true}},
        {"damaged frames, which are repeated", {.badChecksums = 7}},
        {"messages that nobody asked for", {.extraMessages = true}},
        {"ports that it does not have", {.phantomPorts = true}, 0, true},
        {"cut at every byte", {.badChecksums = 3, .extraMessages = true}, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        router.quirks() = c.quirks;
        router.faults().pieceSize = c.pieceSize;
        auto running = connecting();
        const auto toldBefore = router.acknowledgements();
        // A damaged frame is refused, and its repetition acknowledged.
        EXPECT_TRUE(running->pump(
            [&] { return router.acknowledgements() >= toldBefore + 18 && router.hasSaidAll(); }));
        running->settle();
        running->advance(1s);
        EXPECT_TRUE(running->log.contains(connectedText()));
        EXPECT_EQ(running->log.contains(beyond()), c.isWarned);
        EXPECT_EQ(running->log.all().size(), c.isWarned ? 4U : 3U);
    }
    EXPECT_EQ(router.refusals(), 10);
}

TEST_F(SWP08DriverTest, AcknowledgesEveryMessageOfTheRouter)
{
    router.quirks().extraMessages = true;
    const auto running = connected();
    const auto extras = 4 * 18;
    EXPECT_EQ(router.acknowledgements(), 18 + extras);
    router.tellAll(hex("08"));
    EXPECT_TRUE(running->pump([&] { return router.acknowledgements() == 19 + extras; }));
    EXPECT_EQ(router.refusals(), 0);
}

TEST_F(SWP08DriverTest, TellsThatItDoesNotReadDumps)
{
    router.quirks().answerForm = Form::ByteDump;
    const auto running = answered();
    running->advance(5s);
    EXPECT_THAT(running->log.takeNew(),
        ElementsAre("error The device answered TCP but spoke no SW-P-08 — check the port and matrix size."));
    EXPECT_EQ(router.acknowledgements(), 18);
}

TEST_F(SWP08DriverTest, ShowsNoSourceWhereTheRouterShowsNone)
{
    matrix.setRoutes({{0, 4, emulator::noSource}});
    const auto running = answered();
    EXPECT_THAT(running->log.takeNew(), IsEmpty());
    EXPECT_THAT(running->log.all(), testing::Contains(beyond())) << "nothing is source 1024 on the wire";
    running->advance(1s);
    EXPECT_THAT(running->log.takeNew(), ElementsAre(connectedText()));
}

TEST_F(SWP08DriverTest, RoutesPortsOfEveryNumber)
{
    matrix.replace(emulator::MatrixState::ofSize(1024, 1024));
    saved.simSourceCount = 1024;
    saved.simDestinationCount = 1024;
    const auto running = connected();
    struct Case {
        int destination;
        int source;
    };
    const Case cases[] = {{16, 4}, {17, 16}, {16, 16}, {4, 17}, {116, 117}, {15, 128}, {128, 144}, {144, 16},
        {287, 200}, {1023, 0}, {0, 1023}, {1008, 912}};
    for (const auto& c : cases) {
        const auto effect = "route 0:" + std::to_string(c.destination) + "=" + std::to_string(c.source);
        SCOPED_TRACE(effect);
        EXPECT_FALSE(outcome(running->driver->take(c.source, c.destination, 0)));
        EXPECT_TRUE(running->pumpUntilSays(effect));
        EXPECT_EQ(matrix.source(0, c.destination), c.source);
    }
    EXPECT_THAT(running->log.takeNew(), testing::SizeIs(std::size(cases)));
}

TEST_F(SWP08DriverTest, RoutesAndHearsOfEveryLevelButShowsOne)
{
    const auto running = connected();
    EXPECT_FALSE(outcome(running->driver->take(5, 1, 2)));
    EXPECT_TRUE(running->pumpUntilSays("route 2:1=5"));
    EXPECT_THAT(commands(), ElementsAre(hex("02 02 00 01 05")));
    matrix.setRoutes({{1, 1, 5}, {1, 1, 6}});
    EXPECT_TRUE(running->pumpUntilSays("route 1:1=6"));
    EXPECT_FALSE(running->log.contains("route 1:1=5")) << "which it was already, as far as we show";
}

TEST_F(SWP08DriverTest, ReadsTheDestinationAgainWhoseRouteIsRefused)
{
    const auto running = connected();
    router.faults().refuseNext = 1;
    EXPECT_FALSE(outcome(running->driver->takeAll({{0, 16, 3}, {0, 5, 3}})));
    EXPECT_TRUE(running->pump([&] { return commands().size() == 3; }));
    running->settle();
    EXPECT_THAT(running->log.takeNew(), ElementsAre(routeRefused, "route 0:5=3"));
    EXPECT_THAT(commands(), ElementsAre(hex("02 00 00 10 03"), hex("02 00 00 05 03"), hex("01 00 00 10")));
}

TEST_F(SWP08DriverTest, ShowsWhatTheRouterDidInstead)
{
    const auto running = connected();
    router.faults().refuseNext = 1;
    EXPECT_FALSE(outcome(running->driver->take(3, 16, 0)));
    router.faults().silent = true;
    EXPECT_TRUE(running->pump([&] { return commands().size() == 1; }));
    // The refusal was lost; what the router shows by now is told with the next refusal.
    matrix.setRoutes({{0, 16, 9}});
    router.faults().silent = false;
    router.faults().refuseNext = 1;
    EXPECT_FALSE(outcome(running->driver->take(4, 16, 0)));
    EXPECT_TRUE(running->pumpUntilSays("route 0:16=9"));
    EXPECT_THAT(running->log.takeNew(), ElementsAre(routeRefused, "route 0:16=9"));
}

/// A queue that stands for one on another thread: right after a hop onto it, and before the caller is back,
/// it may go on with something else.
class BusyQueue final : public SerialQueue {
public:
    explicit BusyQueue(ManualQueue& queue) : m_queue(queue) { }

    void async(Function function) override
    {
        const auto goOn = std::exchange(afterNextHop, nullptr);
        if (!goOn) {
            m_queue.async(std::move(function));
            return;
        }
        function();
        goOn();
    }
    WorkItem after(Duration delay, Function function) override { return m_queue.after(delay, function); }
    Instant now() const override { return m_queue.now(); }
    bool isCurrent() const override { return !afterNextHop; }

    std::function<void()> afterNextHop;

private:
    ManualQueue& m_queue;
};

TEST_F(SWP08DriverTest, TellsWhichRouteIsRefusedHoweverItsOwnQuestionsFallBetweenCommands)
{
    ManualQueue logQueue;
    BusyQueue busy(queue);
    auto driver = std::make_unique<SWP08Driver>(saved, busy);
    EventLog log(driver->events(), logQueue);
    const auto pump = [&](const auto& condition) { return pumpUntil(condition, {&queue, &logQueue}); };
    EXPECT_FALSE(outcome(driver->connect()));
    EXPECT_TRUE(pump([&] { return router.receivedMessages().size() == 18 && router.hasSaidAll(); }));
    pumpUntilIdle({&queue, &logQueue});

    router.faults().refuseNext = 2;
    EXPECT_FALSE(outcome(driver->take(3, 16, 0)));
    queue.runReady();
    busy.afterNextHop = [&] {
        EXPECT_TRUE(pumpUntil([&] { return log.contains(routeRefused); }, {&logQueue}));
        EXPECT_THAT(log.takeNew(), testing::Contains(routeRefused));
    };
    EXPECT_FALSE(outcome(driver->take(3, 5, 0)));
    EXPECT_TRUE(pump([&] { return commands().size() == 4; }));
    pumpUntilIdle({&queue, &logQueue});
    EXPECT_THAT(log.takeNew(), ElementsAre(routeRefused));
    EXPECT_THAT(commands(),
        ElementsAre(hex("02 00 00 10 03"), hex("02 00 00 05 03"), hex("01 00 00 10"), hex("01 00 00 05")));
    // What it has left on its queue ends before the queue does.
    driver.reset();
    pumpUntilIdle({&queue});
}

TEST_F(SWP08DriverTest, FollowsARouterWhoseFrameWasSwapped)
{
    const auto running = connected();
    matrix.replace(emulator::MatrixState::ofSize(2, 4));
    EXPECT_TRUE(running->pumpUntilSays("route 0:3=1"));
    EXPECT_THAT(running->log.takeNew(), ElementsAre("route 0:2=0", "route 0:3=1"));
}

} // namespace

} // namespace corvane
