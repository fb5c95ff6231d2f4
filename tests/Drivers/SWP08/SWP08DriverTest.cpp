#include "Drivers/SWP08/SWP08Driver.h"
#include "Drivers/Interrogating/InterrogatingDriverFixture.h"

namespace corvane {

namespace {

using emulator::SWP08Emulator;
using emulator::SWP08Quirks;

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
        int answers = 18;
    };
    const Case cases[] = {
        {"plain", {}},
        {"answers as to a connect", {.answerForm = Form::Connected}},
        {"acknowledged behind the answer", {.acknowledgeLast = true}},
        {"highest first, all in one packet", {.answerTogether = true, .highestFirst = true}},
        {"damaged frames, which are repeated", {.badChecksums = 7}},
        {"messages that nobody asked for", {.extraMessages = true}},
        {"ports that it does not have", {.phantomPorts = true}, 0, true},
        {"what shows nothing is not told", {.omitUnrouted = true}, 0, false, 17},
        {"cut at every byte", {.badChecksums = 3, .extraMessages = true}, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        router.quirks() = c.quirks;
        matrix.setRoutes({{0, 3, c.quirks.omitUnrouted ? emulator::noSource : 3}});
        router.faults().pieceSize = c.pieceSize;
        auto running = connecting();
        const auto toldBefore = router.acknowledgements();
        // A damaged frame is refused, and its repetition acknowledged.
        EXPECT_TRUE(running->pump(
            [&] { return router.acknowledgements() >= toldBefore + c.answers && router.hasSaidAll(); }));
        running->settle();
        running->advance(1s);
        EXPECT_TRUE(running->log.contains(connectedText()));
        EXPECT_EQ(running->log.contains(beyond()), c.isWarned);
        EXPECT_EQ(running->log.all().size(), c.isWarned ? 4U : 3U);
    }
    EXPECT_EQ(router.refusals(), 10);
}

TEST_F(SWP08DriverTest, ShowsAndRoutesThePortsThatARouterReportsInTheExtendedFormOnly)
{
    matrix.replace(emulator::MatrixState::ofSize(1024, 1024, 3));
    router.quirks().extendedFrom = 896;
    saved.simSourceCount = 1024;
    saved.simDestinationCount = 1024;
    const auto running = answered();
    running->advance(1s);
    EXPECT_TRUE(running->pump([&] { return commands().size() == 128 && router.hasSaidAll(); }));
    running->settle();
    const auto told = running->log.takeNew();
    ASSERT_EQ(told.size(), 129U);
    EXPECT_THAT(told.front(), testing::EndsWith(" 895=895"));
    for (int destination = 896; destination < 1024; ++destination) {
        const auto number = std::to_string(destination);
        EXPECT_EQ(told.at(static_cast<std::size_t>(destination - 895)), "route 0:" + number + "=" + number);
    }

    for (const Route& route : {Route{0, 17, 16}, Route{0, 1023, 0}, Route{0, 0, 1023}, Route{2, 1008, 912}}) {
        EXPECT_FALSE(outcome(running->driver->take(route.source, route.destination, route.level)));
        const auto effect =
            eventText(driverEvent::RouteChanged{route.level, route.destination, route.source});
        EXPECT_TRUE(running->pumpUntilSays(effect)) << effect;
    }
    router.faults().refuseNext = 1;
    EXPECT_FALSE(outcome(running->driver->take(5, 1000, 0)));
    EXPECT_TRUE(running->pump([&] { return running->log.all().back() == "route 0:1000=1000"; }));
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

} // namespace

} // namespace corvane
