#include "Drivers/InterrogatingDriverFixture.h"
#include "Drivers/QuartzDriver.h"
#include "Drivers/SWP08Driver.h"
#include "Foundation/EventLoopQueue.h"

namespace corvane {

namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using emulator::EmulatorServer;
using testing::ElementsAre;
using testing::IsEmpty;

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

TYPED_TEST(InterrogatingDriverTest, ConnectsAndThenOnlyListens)
{
    const auto running = this->connected();
    running->advance(1h);
    EXPECT_THAT(running->log.takeNew(), IsEmpty());
    EXPECT_THAT(this->commands(), IsEmpty());
}

TYPED_TEST(InterrogatingDriverTest, ConnectsToAMatrixSmallerThanSaved)
{
    this->matrix.replace(emulator::MatrixState::ofSize(3, 5));
    const auto running = this->answered();
    running->advance(1s);
    EXPECT_TRUE(running->log.contains(this->connectedText()));
}

TYPED_TEST(InterrogatingDriverTest, WarnsOnceOfAMatrixLargerThanSaved)
{
    this->saved.simSourceCount = 4;
    this->saved.simDestinationCount = 6;
    const auto running = this->answered();
    running->advance(1s);
    EXPECT_THAT(running->log.all(),
        ElementsAre(testing::_, this->interrogating, this->beyond(), this->connectedText()));
    this->matrix.setRoutes({{0, 17, 0}, {0, 3, 1}, {0, 2, 19}});
    EXPECT_TRUE(running->pumpUntilSays("route 0:3=1"));
    running->settle();
    EXPECT_EQ(running->log.all().size(), 5U);
}

TYPED_TEST(InterrogatingDriverTest, MakesOneRouteAfterTheOther)
{
    const auto running = this->connected();
    EXPECT_FALSE(outcome(running->driver->takeAll({{0, 16, 17}, {0, 17, 16}, {0, 3, 9}})));
    EXPECT_TRUE(running->pumpUntilSays("route 0:3=9"));
    EXPECT_THAT(running->log.takeNew(), ElementsAre("route 0:16=17", "route 0:17=16", "route 0:3=9"));
    EXPECT_EQ(this->commands().size(), 3);
    EXPECT_EQ(this->matrix.source(0, 16), 17);

    EXPECT_FALSE(outcome(running->driver->take(19, 0, 0)));
    EXPECT_TRUE(running->pumpUntilSays("route 0:0=19"));
}

TYPED_TEST(InterrogatingDriverTest, ShowsARouteOnlyWhenTheRouterReportsIt)
{
    const auto running = this->connected();
    this->router.faults().acknowledgeOnly = true;
    EXPECT_FALSE(outcome(running->driver->take(5, 0, 0)));
    EXPECT_TRUE(running->pump([&] { return this->commands().size() == 1; }));
    running->advance(1h);
    EXPECT_THAT(running->log.takeNew(), IsEmpty());
}

TYPED_TEST(InterrogatingDriverTest, SendsNothingWhereThereIsNothingToSend)
{
    const auto running = this->connected();
    EXPECT_FALSE(outcome(running->driver->takeAll({})));
    running->settle();
    EXPECT_THAT(this->commands(), IsEmpty());
    EXPECT_FALSE(outcome(running->driver->disconnect()));
    EXPECT_FALSE(outcome(running->driver->takeAll({})));
    EXPECT_EQ(outcome(running->driver->takeAll({{0, 0, 1}})), DriverError::notConnected());
}

TYPED_TEST(InterrogatingDriverTest, HasNeitherLocksNorNames)
{
    const auto running = this->connected();
    EXPECT_EQ(outcome(running->driver->setLock(0, 0, true)), DriverError::unsupported(feature::locking));
    EXPECT_EQ(outcome(running->driver->setLabel(u"A"_s, 0, PortKind::source)),
        DriverError::unsupported(feature::renaming));
    running->settle();
    EXPECT_THAT(this->commands(), IsEmpty());
}

TYPED_TEST(InterrogatingDriverTest, TellsWhatOthersDo)
{
    const auto running = this->connected();
    this->matrix.setRoutes({{0, 17, 16}});
    EXPECT_TRUE(running->pumpUntilSays("route 0:17=16"));
}

TYPED_TEST(InterrogatingDriverTest, SaysThatASilentDeviceDoesNotSpeakTheProtocolButGoesOnListening)
{
    this->router.faults().silent = true;
    const auto running = this->answered();
    const auto unspoken = "error The device answered TCP but spoke no " + emulator::protocolName(this->router)
        + " — check the port and matrix size.";
    running->advance(4999ms);
    EXPECT_THAT(running->log.takeNew(), IsEmpty());
    running->advance(1ms);
    EXPECT_THAT(running->log.takeNew(), ElementsAre(unspoken));
    this->router.faults().silent = false;
    this->matrix.setRoutes({{0, 2, 7}});
    running->settle();
    running->advance(1s);
    EXPECT_THAT(running->log.takeNew(), ElementsAre(testing::EndsWith(" routes 2=7")));
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

/// On the class's own thread, as in the program: what crosses over is what ThreadSanitizer is to see. A
/// picture takes a second of real silence, so that what the router does must tell.
TYPED_TEST(InterrogatingDriverTest, WorksOnItsOwnThread)
{
    MainQueue mainQueue;
    for (int round = 0; round < 3; ++round) {
        const auto driver = std::make_shared<typename TestFixture::Driver>(this->saved);
        EventLog log(driver->events(), mainQueue);
        EXPECT_FALSE(outcome(driver->connect()));
        EXPECT_TRUE(pumpUntil([&] { return log.contains(this->interrogating); }));
        EXPECT_FALSE(outcome(driver->takeAll({{0, 17, round + 1}, {0, 16, round + 2}})));
        EXPECT_TRUE(pumpUntil([&] { return this->matrix.source(0, 16) == round + 2; }));
        EXPECT_EQ(this->matrix.source(0, 17), round + 1);
        if (round == 1) {
            this->router.dropClients(EmulatorServer::Drop::InMidMessage);
            EXPECT_TRUE(pumpUntil([&] { return log.contains("disconnected"); }));
        }
        EXPECT_FALSE(outcome(driver->disconnect()));
    }
    EXPECT_TRUE(pumpUntil([&] { return this->router.clientCount() == 0; }));
}

/// Tells as a refusal which destination's command was not sent.
class TellTaleParser final : public InterrogatingParser {
public:
    TellTaleParser(const RouterConnection& connection, SerialQueue& queue, const RouterEventStream& events)
        : InterrogatingParser(connection, {u"Babble"_s, RouterVendor::lightware, 100}, queue, events)
    {
    }

    QByteArray commandFor(const Route& /*route*/) override { return "take"; }

    void commandNotSent(qint64 destination) override
    {
        matrix().refuse(u"not sent: %1"_s.arg(destination));
        InterrogatingParser::commandNotSent(destination);
    }

protected:
    void read(std::string_view /*bytes*/) override { }
    void interrogate(qint64 /*destination*/) override { say("ask"); }
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
    EXPECT_TRUE(running->pumpWithoutQueueUntilSays("disconnected The router closed the connection."));
    EXPECT_FALSE(outcome(running->driver->takeAll({{0, 7, 1}, {0, 5, 2}})));
    running->settle();
    EXPECT_THAT(running->log.all(), testing::IsSupersetOf({"refused not sent: 7", "refused not sent: 5"}));
}

} // namespace

} // namespace corvane
