#include "Drivers/Videohub/VideohubDriver.h"
#include "Drivers/DriverHarness.h"
#include "emulator/VideohubEmulator.h"

namespace corvane {

namespace {

using emulator::EmulatedMatrix;
using emulator::VideohubEmulator;
using emulator::VideohubQuirks;

const std::string reading = "status Reading router state…";
const std::string refusal = "refused The router refused the last command.";
const std::string connectedTo3x2 =
    "connected blackmagicVideohub \"Emulated Videohub\" \"Blackmagic Smart Videohub 3 x 2\""
    " [Input 1|Input 2|Input 3] [Output 1|Output 2] routes 0=0 1=1";

/// A router of three sources and two destinations, and a driver on its way to it.
class VideohubDriverTest : public testing::Test {
protected:
    using Harness = DriverHarness<VideohubDriver>;

    RouterConnection here() const
    {
        RouterConnection router;
        router.name = u"Studio"_s;
        router.host = u"127.0.0.1"_s;
        router.port = hub.port();
        return router;
    }

    std::unique_ptr<Harness> connecting()
    {
        auto running = std::make_unique<Harness>(queue, here());
        EXPECT_FALSE(outcome(running->driver->connect()));
        return running;
    }

    std::unique_ptr<Harness> connected()
    {
        auto running = connecting();
        EXPECT_TRUE(running->pumpUntilSays(connectedTo3x2));
        EXPECT_THAT(running->log.takeNew(), ElementsAre(testing::_, reading, connectedTo3x2));
        return running;
    }

    std::string heard() const { return hub.receivedBytes().toStdString(); }

    /// What the router has heard since the test last asked, once the operation's effect has come back.
    std::string heardUntil(Harness& running, QCoro::Task<> operation, const std::string& effect)
    {
        const auto before = hub.receivedBytes().size();
        (void)running.log.takeNew();
        EXPECT_FALSE(outcome(std::move(operation)));
        EXPECT_TRUE(running.pump([&] {
            for (const auto& text : running.log.takeNew()) {
                if (text == effect)
                    return true;
            }
            return false;
        })) << effect;
        return hub.receivedBytes().mid(before).toStdString();
    }

    ManualQueue queue;
    EmulatedMatrix matrix{3, 2};
    VideohubEmulator hub{matrix};
};

TEST_F(VideohubDriverTest, ConnectsHoweverTheRouterSpeaksAndSaysNothingItself)
{
    struct Case {
        const char* name;
        VideohubQuirks quirks;
        int pieceSize = 0;
        bool tellsItsEnd = true;
    };
    const Case cases[] = {
        {"plain", {}},
        {"byte by byte", {.crLfLineEnds = true, .extraBlocks = true}, 1},
        {"without what is not needed", {.omitLocks = true, .omitConfiguration = true}},
        {"without an end", {.omitEndPrelude = true}, 0, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        hub.quirks() = c.quirks;
        hub.faults().pieceSize = c.pieceSize;
        const auto running = connecting();
        EXPECT_TRUE(running->pump([&] { return running->log.contains(reading) && hub.hasSaidAll(); }));
        running->settle();
        EXPECT_EQ(running->log.contains(connectedTo3x2), c.tellsItsEnd);
        running->advance(1200ms);
        EXPECT_THAT(running->log.takeNew(), ElementsAre(testing::_, reading, connectedTo3x2));
        running->advance(1h);
        EXPECT_THAT(running->log.takeNew(), IsEmpty());
    }
    hub.quirks() = {.olderRoutingHeader = true};
    const auto running = connecting();
    EXPECT_TRUE(running->pumpUntilSays(reading));
    running->settle();
    running->advance(1h);
    EXPECT_EQ(running->log.all().size(), 2U);
    EXPECT_THAT(heard(), IsEmpty());
}

TEST_F(VideohubDriverTest, SendsEachCommandAsOneBlock)
{
    const auto running = connected();
    const auto& driver = running->driver;
    struct Case {
        std::function<QCoro::Task<>()> command;
        std::string block;
        std::string effect;
    };
    const Case cases[] = {
        {[&] { return driver->take(2, 1, 7); }, "VIDEO OUTPUT ROUTING:\n1 2\n\n", "route 0:1=2"},
        {[&] {
             return driver->takeAll({{0, 1, 0}, {5, 0, 1}});
         },
            "VIDEO OUTPUT ROUTING:\n1 0\n0 1\n\n", "route 0:0=1"},
        {[&] { return driver->setLabel(u"Köln %1"_s, 2, PortKind::source); }, "INPUT LABELS:\n2 Köln %1\n\n",
            "label source 2 Köln %1"},
        {[&] { return driver->setLabel(u""_s, 0, PortKind::destination); }, "OUTPUT LABELS:\n0 \n\n",
            "label destination 0 "},
        {[&] { return driver->setLock(0, 7, true); }, "VIDEO OUTPUT LOCKS:\n0 O\n\n", "lock 0"},
        {[&] { return driver->setLock(0, 7, false); }, "VIDEO OUTPUT LOCKS:\n0 U\n\n", "unlock 0"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(heardUntil(*running, c.command(), c.effect), c.block);
    EXPECT_EQ(matrix.source(0, 0), 1);

    const auto before = heard();
    EXPECT_FALSE(outcome(driver->takeAll({})));
    EXPECT_TRUE(running->pump([&] { return heard() == before + "VIDEO OUTPUT ROUTING:\n\n\n"; }));
}

TEST_F(VideohubDriverTest, ForcesOpenNoLockButThatOfAnother)
{
    ASSERT_TRUE(hub.playCapture("VIDEOHUB DEVICE:\nVideo inputs: 3\nVideo outputs: 3\n\n"
                                "VIDEO OUTPUT LOCKS:\n0 F\n1 L\n2 O\n\n"
                                "VIDEO OUTPUT ROUTING:\n0 0\n\nEND PRELUDE:\n\n"));
    const auto running = connecting();
    EXPECT_TRUE(running->pump([&] { return running->log.all().size() == 3; }));
    for (const qint64 destination : {0, 1, 2})
        EXPECT_FALSE(outcome(running->driver->setLock(destination, 0, false)));
    EXPECT_TRUE(running->pump([&] { return hub.receivedBlocks().size() == 3; }));
    EXPECT_EQ(
        heard(), "VIDEO OUTPUT LOCKS:\n0 U\n\nVIDEO OUTPUT LOCKS:\n1 F\n\nVIDEO OUTPUT LOCKS:\n2 U\n\n");
    hub.quirks().ownLocksLookForeign = true;
    heardUntil(*running, running->driver->setLock(0, 0, true), "lock 0");
    EXPECT_EQ(heardUntil(*running, running->driver->setLock(0, 0, false), "unlock 0"),
        "VIDEO OUTPUT LOCKS:\n0 F\n\n");
}

TEST_F(VideohubDriverTest, TellsWholeTablesAsTheyCome)
{
    const auto running = connected();
    hub.quirks().tellWholeTables = true;
    matrix.setRoutes({{0, 1, 2}});
    EXPECT_TRUE(running->pumpUntilSays("route 0:1=2"));
    EXPECT_THAT(running->log.takeNew(), ElementsAre("route 0:0=0", "route 0:1=2"));
}

TEST_F(VideohubDriverTest, DoesNotLockOnARouterThatHasShownNoLocks)
{
    hub.quirks().omitLocks = true;
    const auto running = connected();
    EXPECT_EQ(outcome(running->driver->setLock(0, 0, true)), DriverError::unsupported(feature::locking));
    running->settle();
    EXPECT_THAT(heard(), IsEmpty());
}

TEST_F(VideohubDriverTest, ReadsTheMatrixAgainWhenARouteIsRefused)
{
    const auto running = connected();
    hub.faults().refuseNext = 2;
    EXPECT_FALSE(outcome(running->driver->take(2, 0, 0)));
    EXPECT_FALSE(outcome(running->driver->take(2, 1, 0)));
    EXPECT_TRUE(running->pumpUntilSays("unlock 1"));
    running->settle();
    EXPECT_THAT(running->log.takeNew(),
        testing::UnorderedElementsAre(
            refusal, refusal, "route 0:0=0", "route 0:1=1", "unlock 0", "unlock 1"));
    EXPECT_THAT(heard(), testing::EndsWith("VIDEO OUTPUT ROUTING:\n\nVIDEO OUTPUT LOCKS:\n\n"));
}

TEST_F(VideohubDriverTest, IsFoundByItsBonjourServiceWhenNoHostIsSaved)
{
    auto router = here();
    router.host.clear();
    router.bonjourName = u"Studio %1"_s;
    router.bonjourType = u"_videohub._tcp"_s;
    std::vector<ServiceEndpoint> asked;
    Harness running(queue, router, [&](const ServiceEndpoint& service, const auto& done) {
        asked.push_back(service);
        queue.async([this, done] { done(HostEndpoint{u"127.0.0.1"_s, hub.port()}); });
        return std::make_shared<int>();
    });
    outcome(running.driver->connect());
    EXPECT_TRUE(running.pumpUntilSays(connectedTo3x2));
    EXPECT_EQ(running.log.all().front(), "status Connecting to Studio %1 via Bonjour…");
    EXPECT_THAT(asked, ElementsAre(ServiceEndpoint{u"Studio %1"_s, u"_videohub._tcp"_s, u"local."_s}));
}

TEST_F(VideohubDriverTest, PrefersASavedHostToBonjour)
{
    auto router = here();
    router.bonjourName = u"Studio"_s;
    router.bonjourType = u"_videohub._tcp"_s;
    Harness running(queue, router, [](const ServiceEndpoint&, const auto&) -> std::shared_ptr<void> {
        ADD_FAILURE() << "asked for the service";
        return nullptr;
    });
    outcome(running.driver->connect());
    EXPECT_TRUE(running.pumpUntilSays(connectedTo3x2));
}

TEST_F(VideohubDriverTest, GivesUpOnAServiceThatNobodyFindsWithinTwelveSeconds)
{
    RouterConnection router;
    router.bonjourName = u"Studio"_s;
    router.bonjourType = u"_videohub._tcp"_s;
    router.bonjourDomain = u"example.org."_s;
    const auto search = std::make_shared<int>();
    Harness running(queue, router, [&](const ServiceEndpoint& service, const auto&) {
        EXPECT_EQ(service.domain, u"example.org."_s);
        return search;
    });
    outcome(running.driver->connect());
    running.advance(11999ms);
    EXPECT_EQ(running.log.takeNew().size(), 1U);
    running.advance(1ms);
    EXPECT_THAT(running.log.takeNew(),
        ElementsAre("error The router didn't answer within 12 seconds.", "disconnected"));
    EXPECT_EQ(search.use_count(), 1) << "the search goes on";
}

TEST_F(VideohubDriverTest, AsksForAnAddressWhereHalfOfOneIsSaved)
{
    RouterConnection router;
    router.bonjourName = u"Studio"_s;
    Harness running(queue, router);
    outcome(running.driver->connect());
    running.settle();
    EXPECT_THAT(running.log.all(),
        ElementsAre(
            "error No address for this router. Edit it and set a host, or re-add it from discovery."));
}

} // namespace

} // namespace corvane
