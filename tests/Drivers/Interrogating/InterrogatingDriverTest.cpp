#include "Drivers/Interrogating/InterrogatingDriverFixture.h"
#include "Drivers/Quartz/QuartzDriver.h"
#include "Drivers/SWP08/SWP08Driver.h"

namespace corvane {

namespace {

using emulator::EmulatorServer;

template <typename Driver, typename Emulator>
struct Pair {
    using DriverType = Driver;
    using EmulatorType = Emulator;
};

/// What both families of routers do alike.
template <typename Types>
class InterrogatingDriverTest
    : public InterrogatingDriverFixture<typename Types::DriverType, typename Types::EmulatorType> {
protected:
    using Driver = typename Types::DriverType;
};

using Families =
    testing::Types<Pair<SWP08Driver, emulator::SWP08Emulator>, Pair<QuartzDriver, emulator::QuartzEmulator>>;
TYPED_TEST_SUITE(InterrogatingDriverTest, Families);

TYPED_TEST(InterrogatingDriverTest, MakesOneRouteAfterTheOther)
{
    const auto running = this->connected();
    EXPECT_FALSE(outcome(running->driver->takeAll({{0, 16, 17}, {0, 17, 16}, {0, 3, 9}})));
    EXPECT_TRUE(running->pumpUntilSays("route 0:3=9"));
    EXPECT_THAT(running->log.takeNew(), ElementsAre("route 0:16=17", "route 0:17=16", "route 0:3=9"));
    EXPECT_EQ(this->commands().size(), 3);
    EXPECT_EQ(this->matrix.source(0, 16), 17);

    EXPECT_FALSE(outcome(running->driver->takeAll({})));
    EXPECT_FALSE(outcome(running->driver->take(19, 0, 0)));
    EXPECT_TRUE(running->pumpUntilSays("route 0:0=19"));
    EXPECT_EQ(this->commands().size(), 4);
}

TYPED_TEST(InterrogatingDriverTest, PutsBackWhatTheRouterRefused)
{
    const auto running = this->connected();
    this->router.faults().refuseNext = 1;
    this->matrix.setLocks({{16, emulator::somebodyElse}});
    EXPECT_FALSE(outcome(running->driver->takeAll({{0, 3, 9}, {0, 16, 9}, {0, 4, 9}})));
    EXPECT_TRUE(running->pumpUntilSays("route 0:16=16"));
    EXPECT_THAT(running->log.takeNew(),
        testing::UnorderedElementsAre(testing::StartsWith("refused The router refused the "),
            testing::StartsWith("refused The router refused the "), "route 0:4=9", "route 0:3=3",
            "route 0:16=16"));
    EXPECT_EQ(this->commands().size(), 5);
    running->advance(1h);
    EXPECT_THAT(running->log.takeNew(), IsEmpty());
}

TYPED_TEST(InterrogatingDriverTest, ReportsARouteThatCouldNotBeSent)
{
    const auto running = this->connected();
    this->router.dropClients(EmulatorServer::Drop::InMidMessage);
    // The connection is about to be cancelled when the command comes.
    EXPECT_TRUE(running->pumpWithoutQueueUntilSays("disconnected The router closed the connection."));
    EXPECT_FALSE(outcome(running->driver->takeAll({{0, 0, 1}, {0, 1, 2}})));
    running->settle();
    EXPECT_THAT(running->log.takeNew(),
        ElementsAre("disconnected The router closed the connection.", "disconnected",
            testing::StartsWith("refused Couldn't send the command: "),
            testing::StartsWith("refused Couldn't send the command: ")));
}

/// Tells as a refusal which destination's command was not sent.
class TellTaleParser final : public InterrogatingParser {
public:
    TellTaleParser(const RouterConnection& connection, SerialQueue& queue, const RouterEventStream& events)
        : InterrogatingParser(connection, {u"Babble"_s, RouterVendor::lightware, 100}, queue, events),
          m_tale(events)
    {
    }

    QByteArray commandFor(const Route& /*route*/) override { return "take"; }

    void commandNotSent(qint64 destination) override
    {
        m_tale.yield(driverEvent::CommandRefused{u"not sent: %1"_s.arg(destination)});
        InterrogatingParser::commandNotSent(destination);
    }

protected:
    void read(std::string_view /*bytes*/) override { }
    void interrogate(qint64 /*destination*/) override { say("ask"); }

private:
    // Its own way out is closed together with the link.
    const RouterEventStream m_tale;
};

class TellTaleDriver final : public InterrogatingDriver {
public:
    TellTaleDriver(const RouterConnection& connection, SerialQueue& queue)
        : InterrogatingDriver(std::type_identity<TellTaleParser>{}, connection, queue)
    {
    }
};

/// Its router is of no matter: it closes the line.
using LostCommandTest = InterrogatingDriverFixture<TellTaleDriver, emulator::QuartzEmulator>;

TEST_F(LostCommandTest, TellsTheParserOfEachCommandThatWasNotSent)
{
    const auto running = connecting();
    EXPECT_TRUE(running->pumpUntilSays(interrogating));
    EXPECT_TRUE(pumpUntil([&] { return router.clientCount() == 1; }));
    router.dropClients(EmulatorServer::Drop::InMidMessage);
    EXPECT_TRUE(running->pumpWithoutQueueUntilSays("error Receive failed: Connection reset by peer"));
    EXPECT_FALSE(outcome(running->driver->takeAll({{0, 7, 1}, {0, 5, 2}})));
    running->settle();
    EXPECT_THAT(running->log.all(), testing::IsSupersetOf({"refused not sent: 7", "refused not sent: 5"}));
}

} // namespace

} // namespace corvane
