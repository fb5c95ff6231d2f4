#include "Drivers/Tcp/TcpDriver.h"
#include "Drivers/DriverHarness.h"
#include "support/Sockets.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace corvane {

namespace {

const std::string waiting = "status Waiting for router… (Connection refused)";
const std::string ready = "status Reading…";
const std::string closed = "disconnected The router closed the connection.";
const std::string unanswered = "error The router didn't answer within 12 seconds.";

/// Greets with "HELLO" and keeps what it hears. Each "#" of it is a route.
class PlainParser final : public ProtocolParser {
public:
    PlainParser(QByteArray& heard, SerialQueue& queue, RouterEventStream events)
        : ProtocolParser(queue, std::move(events)), m_heard(heard)
    {
    }

    void sayAtOnce(const QByteArray& bytes)
    {
        say(bytes);
        flush();
    }

protected:
    void greet() override { say("HELLO"); }
    void read(std::string_view bytes) override
    {
        EXPECT_LE(bytes.size(), 65536U);
        m_heard.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
        for (auto count = std::ranges::count(bytes, '#'); count > 0; --count)
            yield(driverEvent::RouteChanged{});
    }

private:
    QByteArray& m_heard;
};

/// The least that a protocol can be: every command is its own text.
class PlainDriver final : public TcpDriver {
public:
    PlainDriver(const RouterConnection& connection, SerialQueue& queue, QByteArray& heard)
        : TcpDriver(connection, queue), m_parser(makeParser<PlainParser>(queue, heard, queue, events()))
    {
    }

    QCoro::Task<> take(qint64 source, qint64 destination, qint64) override
    {
        sendCommand("TAKE " + QByteArray::number(destination) + ' ' + QByteArray::number(source),
            [&recoveries = recoveries] { ++recoveries; });
        co_return;
    }
    QCoro::Task<> setLock(qint64, qint64, bool) override { co_return; }
    QCoro::Task<> setLabel(QString, qint64, PortKind) override { co_return; }

    void sayFromParser(const QByteArray& bytes) { m_parser->sayAtOnce(bytes); }

    int recoveries = 0;

protected:
    std::shared_ptr<ProtocolParser> parser() const override { return m_parser; }
    QString readyText() const override { return u"Reading…"_s; }

private:
    const std::shared_ptr<PlainParser> m_parser;
};

class TcpDriverTest : public testing::Test {
protected:
    using Harness = DriverHarness<PlainDriver>;

    TcpDriverTest() { EXPECT_TRUE(server.listen(QHostAddress::LocalHost)); }

    RouterConnection here() const
    {
        RouterConnection router;
        router.host = u"127.0.0.1"_s;
        router.port = server.serverPort();
        return router;
    }

    std::string connecting() const
    {
        return "status Connecting to 127.0.0.1:" + std::to_string(server.serverPort()) + "…";
    }

    std::unique_ptr<Harness> harness(const RouterConnection& router)
    {
        return std::make_unique<Harness>(queue, router, heard);
    }

    std::unique_ptr<Harness> connected()
    {
        auto running = harness(here());
        EXPECT_FALSE(outcome(running->driver->connect()));
        EXPECT_TRUE(
            running->pump([&] { return running->log.contains(ready) && server.hasPendingConnections(); }));
        peer.reset(server.nextPendingConnection());
        EXPECT_TRUE(running->pump([&] { return peer->bytesAvailable() == 5; }));
        EXPECT_EQ(peer->readAll(), "HELLO");
        EXPECT_THAT(running->log.takeNew(), ElementsAre(connecting(), ready));
        return running;
    }

    ManualQueue queue;
    QTcpServer server;
    std::unique_ptr<QTcpSocket> peer;
    QByteArray heard;
};

TEST_F(TcpDriverTest, OpensTheConversationAndHandsOnAllThatItHears)
{
    const auto running = connected();
    const QByteArray much(300'000, 'x');
    peer->write(much + "END");
    EXPECT_TRUE(running->pump([&] { return heard.size() == much.size() + 3; }));
    EXPECT_EQ(heard, much + "END");
    EXPECT_THAT(running->log.takeNew(), IsEmpty());
}

TEST_F(TcpDriverTest, SaysWhereItConnectsToAndWaitsForARouterThatIsNotThereYet)
{
    const auto router = here();
    server.close();
    const auto running = harness(router);
    outcome(running->driver->connect());
    EXPECT_TRUE(running->pumpUntilSays(waiting));
    EXPECT_EQ(outcome(running->driver->take(1, 0, 0)), DriverError::notConnected());
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, static_cast<quint16>(router.port)));
    running->advance(1s);
    EXPECT_TRUE(running->pumpUntilSays(ready));
    EXPECT_THAT(running->log.all(), ElementsAre(connecting(), waiting, ready));
}

TEST_F(TcpDriverTest, GivesUpAfterTwelveSeconds)
{
    const auto router = here();
    server.close();
    const auto running = harness(router);
    outcome(running->driver->connect());
    EXPECT_TRUE(running->pumpUntilSays(waiting));
    running->advance(11999ms);
    EXPECT_FALSE(running->log.contains(unanswered));
    running->advance(1ms);
    EXPECT_THAT(running->log.all(), ElementsAre(testing::_, waiting, unanswered, "disconnected"));
    running->advance(1h);
    EXPECT_EQ(running->log.all().size(), 4U);
}

TEST_F(TcpDriverTest, NeedsAnAddressOfItsOwn)
{
    auto router = here();
    router.host.clear();
    router.bonjourName.emplace(u"Studio"_s);
    router.bonjourType.emplace(u"_other._tcp"_s);
    const auto running = harness(router);
    outcome(running->driver->connect());
    running->settle();
    EXPECT_THAT(running->log.all(), ElementsAre("error No address for this router. Edit it and set a host."));
    EXPECT_EQ(queue.waitingCount(), 0U);
}

TEST_F(TcpDriverTest, ShowsThePortAsTypedAndConnectsToTheNearestThereIs)
{
    for (const qint64 port :
        {qint64(-1), server.serverPort() - qint64(65536), qint64(65536) + server.serverPort()}) {
        auto router = here();
        router.port = port;
        const auto running = harness(router);
        outcome(running->driver->connect());
        EXPECT_TRUE(running->pump([&] { return running->log.all().size() == 2; }));
        EXPECT_THAT(running->log.all(),
            ElementsAre("status Connecting to 127.0.0.1:" + std::to_string(port) + "…",
                testing::StartsWith("status Waiting for router… (")));
    }
    EXPECT_FALSE(server.hasPendingConnections());
}

TEST_F(TcpDriverTest, ReadsTheLastWordsBeforeItTellsOfTheEnd)
{
    const auto running = connected();
    peer->write("LAST WORDS");
    peer->close();
    EXPECT_TRUE(running->pumpUntilSays(closed));
    EXPECT_EQ(heard, "LAST WORDS");
    running->settle();
    EXPECT_THAT(running->log.takeNew(), ElementsAre(closed, "disconnected"));
    EXPECT_EQ(outcome(running->driver->take(1, 0, 0)), DriverError::notConnected());
}

TEST_F(TcpDriverTest, TellsABrokenConnectionFromOneThatWasClosed)
{
    const auto running = connected();
    reset(*peer);
    const std::string failure = "error Receive failed: Connection reset by peer";
    EXPECT_TRUE(running->pumpUntilSays(failure));
    running->settle();
    EXPECT_THAT(running->log.takeNew(), ElementsAre(failure, "disconnected"));
}

TEST_F(TcpDriverTest, GivesUpAtOnceWhereNoConnectionCanEverBe)
{
    // A sanitizer needs descriptors to look at the type of an object, and looks once: let it do so before.
    connected()->settle();
    const auto running = harness(here());
    outcome(running->driver->connect());
    {
        const NoDescriptorsLeft poverty;
        queue.runReady();
    }
    running->advance(1h);
    EXPECT_THAT(
        running->log.all(), ElementsAre(connecting(), testing::StartsWith("error Connection failed: ")));
}

TEST_F(TcpDriverTest, SendsCommandsInTheirOrder)
{
    const auto running = connected();
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(outcome(running->driver->take(i, 7, 0)));
    EXPECT_TRUE(running->pump([&] { return peer->bytesAvailable() == 24; }));
    EXPECT_EQ(peer->readAll(), "TAKE 7 0TAKE 7 1TAKE 7 2");
}

TEST_F(TcpDriverTest, ReportsACommandThatCouldNotBeSent)
{
    const auto running = connected();
    peer->close();
    // The connection is about to be cancelled when the command comes.
    EXPECT_TRUE(running->pumpWithoutQueueUntilSays(closed));
    EXPECT_FALSE(outcome(running->driver->take(1, 0, 0)));
    running->settle();
    EXPECT_THAT(running->log.takeNew(),
        ElementsAre(closed, "disconnected", testing::StartsWith("refused Couldn't send the command: ")));
    EXPECT_EQ(running->driver->recoveries, 1);
}

TEST_F(TcpDriverTest, KeepsOnlySoMuchForARouterThatReadsNothing)
{
    const auto running = connected();
    peer->setReadBufferSize(1);
    // Each comes while the one before still waits: far more than the systems on both sides hold.
    for (int i = 0; i < 64; ++i)
        running->driver->sayFromParser(QByteArray(1 << 20, 'x'));
    running->settle();
    EXPECT_FALSE(outcome(running->driver->take(1, 0, 0)));
    running->settle();
    EXPECT_THAT(running->log.takeNew(),
        ElementsAre("refused Couldn't send the command: The other side does not read what it is sent"));
    EXPECT_EQ(running->driver->recoveries, 1);

    peer->setReadBufferSize(0);
    EXPECT_TRUE(running->pump([&] {
        const auto read = peer->readAll();
        EXPECT_FALSE(outcome(running->driver->take(1, 0, 0)));
        return read.endsWith("TAKE 0 1");
    })) << "it reads again";
}

TEST_F(TcpDriverTest, DisconnectsWithoutAWordAndBearsBeingToldTwice)
{
    const auto running = connected();
    outcome(running->driver->disconnect());
    EXPECT_FALSE(outcome(running->driver->disconnect()));
    EXPECT_EQ(outcome(running->driver->take(1, 0, 0)), DriverError::notConnected());
    EXPECT_TRUE(running->pump([&] { return peer->state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_THAT(running->log.takeNew(), IsEmpty());
}

TEST_F(TcpDriverTest, CanBeDisconnectedWhileItStillConnects)
{
    const auto running = harness(here());
    outcome(running->driver->connect());
    outcome(running->driver->disconnect());
    running->advance(1h);
    EXPECT_THAT(running->log.all(), ElementsAre(connecting()));
}

TEST_F(TcpDriverTest, ClosesTheConnectionWhenItIsDropped)
{
    const auto running = connected();
    running->driver.reset();
    EXPECT_TRUE(running->pump([&] { return peer->state() == QAbstractSocket::UnconnectedState; }));
}

TEST_F(TcpDriverTest, ReadsFromARouterNoFurtherThanItsControllerFollows)
{
    const auto running = connected();
    const auto route = QByteArray(99, ' ') + '#';
    constexpr auto routes = 2 * RouterEventStream::longBacklog;
    peer->write(route.repeated(routes));
    const auto readRoutes = [this] { return static_cast<std::size_t>(heard.size()) / 100; };
    EXPECT_TRUE(pumpUntil([&] { return readRoutes() >= RouterEventStream::longBacklog; }, {&queue}));
    pumpUntilIdle({&queue});
    EXPECT_LE(readRoutes(), RouterEventStream::longBacklog + TcpDriver::deliverySize / 100);
    EXPECT_TRUE(running->pump([&] { return running->log.all().size() == routes + 2; }));
}

} // namespace

} // namespace corvane
