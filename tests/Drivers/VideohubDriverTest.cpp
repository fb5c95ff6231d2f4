#include "Drivers/VideohubDriver.h"
#include "Drivers/DriverHarness.h"
#include "Foundation/EventLoopQueue.h"
#include "emulator/VideohubEmulator.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using emulator::EmulatedMatrix;
using emulator::VideohubEmulator;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string reading = "status Reading router state…";
const std::string refusal = "refused The router refused the last command.";
const std::string connectedTo3x2 = "connected \"Emulated Videohub\" \"Blackmagic Smart Videohub 3 x 2\""
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

    /// What the router has heard once the operation's effect has come back.
    std::string heardUntil(Harness& running, QCoro::Task<> operation, const std::string& effect)
    {
        EXPECT_FALSE(outcome(std::move(operation)));
        EXPECT_TRUE(running.pumpUntilSays(effect));
        return heard();
    }

    ManualQueue queue;
    EmulatedMatrix matrix{3, 2};
    VideohubEmulator hub{matrix};
};

TEST_F(VideohubDriverTest, ListensToTheRouterAndSaysNothingItself)
{
    const auto running = connected();
    running->advance(1h);
    EXPECT_THAT(heard(), IsEmpty());
    EXPECT_THAT(running->log.takeNew(), IsEmpty());
}

TEST_F(VideohubDriverTest, ConnectsHoweverTheRoutersWordsAreCut)
{
    hub.faults().pieceSize = 1;
    hub.quirks().crLfLineEnds = true;
    hub.quirks().extraBlocks = true;
    connected();
}

TEST_F(VideohubDriverTest, ConnectsToARouterThatDoesNotTellItsEnd)
{
    hub.quirks().omitEndPrelude = true;
    const auto running = connecting();
    EXPECT_TRUE(running->pumpUntilSays(reading));
    running->settle();
    running->advance(1199ms);
    EXPECT_FALSE(running->log.contains(connectedTo3x2));
    running->advance(1ms);
    EXPECT_TRUE(running->pumpUntilSays(connectedTo3x2));
}

TEST_F(VideohubDriverTest, SendsAllRoutesInOneBlock)
{
    const auto running = connected();
    EXPECT_EQ(heardUntil(*running, running->driver->takeAll({{0, 1, 2}, {5, 0, 1}}), "route 0:0=1"),
        "VIDEO OUTPUT ROUTING:\n1 2\n0 1\n\n");
    EXPECT_TRUE(running->log.contains("route 0:1=2"));
    EXPECT_EQ(matrix.source(0, 1), 2);
}

TEST_F(VideohubDriverTest, SendsABlockEvenWithoutARoute)
{
    const auto running = connected();
    EXPECT_FALSE(outcome(running->driver->takeAll({})));
    EXPECT_TRUE(running->pump([&] { return heard() == "VIDEO OUTPUT ROUTING:\n\n\n"; }));
}

TEST_F(VideohubDriverTest, MakesASingleRoute)
{
    const auto running = connected();
    EXPECT_EQ(heardUntil(*running, running->driver->take(2, 1, 0), "route 0:1=2"),
        "VIDEO OUTPUT ROUTING:\n1 2\n\n");
}

TEST_F(VideohubDriverTest, NamesPortsOfBothKinds)
{
    const auto running = connected();
    const auto& driver = running->driver;
    heardUntil(*running, driver->setLabel(u"Köln %1"_s, 2, PortKind::source), "label source 2 Köln %1");
    EXPECT_EQ(heardUntil(*running, driver->setLabel(u""_s, 0, PortKind::destination), "label destination 0 "),
        "INPUT LABELS:\n2 Köln %1\n\nOUTPUT LABELS:\n0 \n\n");
}

TEST_F(VideohubDriverTest, LocksAndUnlocksAndForcesOpenWhatAnotherHasLocked)
{
    const auto running = connected();
    const auto& driver = running->driver;
    heardUntil(*running, driver->setLock(0, 0, true), "lock 0");
    heardUntil(*running, driver->setLock(0, 0, false), "unlock 0");
    matrix.setLocks({{1, emulator::somebodyElse}});
    EXPECT_TRUE(running->pumpUntilSays("lock 1"));
    EXPECT_EQ(heardUntil(*running, driver->setLock(1, 0, false), "unlock 1"),
        "VIDEO OUTPUT LOCKS:\n0 O\n\nVIDEO OUTPUT LOCKS:\n0 U\n\nVIDEO OUTPUT LOCKS:\n1 F\n\n");
    EXPECT_FALSE(matrix.lockOwner(1));
}

TEST_F(VideohubDriverTest, DoesNotLockOnARouterThatHasShownNoLocks)
{
    hub.quirks().omitLocks = true;
    const auto running = connected();
    EXPECT_EQ(outcome(running->driver->setLock(0, 0, true)), DriverError::unsupported(feature::locking));
    running->settle();
    EXPECT_THAT(heard(), IsEmpty());
}

TEST_F(VideohubDriverTest, TellsWhatOthersDo)
{
    const auto running = connected();
    matrix.setRoutes({{0, 1, 0}});
    EXPECT_TRUE(running->pumpUntilSays("route 0:1=0"));
    matrix.setLabels({{emulator::Side::Destination, 1, u"Stage"_s}});
    EXPECT_TRUE(running->pumpUntilSays("label destination 1 Stage"));
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

/// On the class's own thread, as in the program: what crosses over is what ThreadSanitizer is to see.
TEST_F(VideohubDriverTest, WorksOnItsOwnThread)
{
    MainQueue mainQueue;
    for (int round = 0; round < 3; ++round) {
        const auto driver = std::make_shared<VideohubDriver>(here());
        EventLog log(driver->events(), mainQueue);
        EXPECT_FALSE(outcome(driver->connect()));
        EXPECT_TRUE(pumpUntil([&] { return log.contains(reading) && log.all().size() == 3; }));
        EXPECT_FALSE(outcome(driver->setLock(0, 0, true)));
        EXPECT_FALSE(outcome(driver->take(round, 1, 0)));
        EXPECT_TRUE(pumpUntil(
            [&] { return log.contains("route 0:1=" + std::to_string(round)) && log.contains("lock 0"); }));
        EXPECT_FALSE(outcome(driver->setLock(0, 0, false)));
        EXPECT_TRUE(pumpUntil([&] { return log.contains("unlock 0"); }));
        if (round == 1) {
            hub.dropClients(VideohubEmulator::Drop::InMidMessage);
            EXPECT_TRUE(pumpUntil([&] { return log.contains("disconnected"); }));
        }
        EXPECT_FALSE(outcome(driver->disconnect()));
    }
    EXPECT_TRUE(pumpUntil([&] { return hub.clientCount() == 0; }));
}

} // namespace

} // namespace corvane
