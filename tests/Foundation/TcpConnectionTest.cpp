#include "Foundation/TcpConnection.h"
#include "support/ManualQueue.h"
#include "support/Pump.h"
#include "support/Sockets.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <sys/socket.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

const auto refused = u"Connection refused"_s;

std::shared_ptr<void> noService(const ServiceEndpoint&, const std::function<void(ServiceResolution)>&)
{
    return nullptr;
}

/// A peer on loopback, and a connection to it whose queue the test moves.
class TcpConnectionTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(server.listen(QHostAddress::LocalHost)); }

    void open(Endpoint endpoint, ServiceResolver resolver = noService)
    {
        connection = TcpConnection::make(std::move(endpoint), queue, std::move(resolver));
        connection->setStateHandler([this](const auto& state) { states.push_back(state); });
        read();
        connection->start();
    }

    HostEndpoint here() const { return {u"127.0.0.1"_s, server.serverPort()}; }

    void read()
    {
        connection->receive(65536, [this](const TcpConnection::Delivery& delivery) {
            received += delivery.bytes;
            if (delivery.isComplete || delivery.error)
                ends.push_back(delivery);
            else
                read();
        });
    }

    bool pump(const std::function<bool()>& condition) { return pumpUntil(condition, {&queue}); }

    QTcpSocket* accept()
    {
        EXPECT_TRUE(pump([this] { return connection->isReady() && server.hasPendingConnections(); }));
        return server.nextPendingConnection();
    }

    QTcpServer server;
    ManualQueue queue;
    std::shared_ptr<TcpConnection> connection;
    std::vector<TcpConnection::State> states;
    QByteArray received;
    std::vector<TcpConnection::Delivery> ends;
};

TEST_F(TcpConnectionTest, CarriesBytesBothWaysInOrder)
{
    open(here());
    auto* const peer = accept();
    std::vector<int> completions;
    for (int i = 0; i < 3; ++i) {
        connection->send(QByteArray::number(i) + '\n', [&completions, i](const auto& error) {
            EXPECT_FALSE(error);
            completions.push_back(i);
        });
    }
    EXPECT_TRUE(pump([&] { return peer->bytesAvailable() == 6; }));
    EXPECT_EQ(peer->readAll(), "0\n1\n2\n");
    EXPECT_EQ(completions, (std::vector{0, 1, 2}));

    const QByteArray large(1'000'000, 'x');
    peer->write(large);
    EXPECT_TRUE(pump([&] { return received.size() == large.size(); }));
    EXPECT_EQ(states, (std::vector<TcpConnection::State>{TcpConnection::Ready{}}));
}

TEST_F(TcpConnectionTest, DeliversEveryByteBeforeTheEndOfTheStreamAndTellsACloseFromAReset)
{
    struct Row {
        std::function<void(QTcpSocket&)> end;
        // A reset takes along what the peer's system still keeps back.
        qsizetype size;
        std::optional<QString> error;
    };
    for (const auto& [end, size, error] : {Row{&QTcpSocket::disconnectFromHost, 300'000, std::nullopt},
             Row{&reset, 1000, u"Connection reset by peer"_s}}) {
        received.clear();
        ends.clear();
        open(here());
        auto* const peer = accept();
        peer->write(QByteArray(size, 'x'));
        EXPECT_TRUE(pump([&] { return peer->bytesToWrite() == 0; }));
        end(*peer);
        EXPECT_TRUE(pump([&] { return !ends.empty(); }));
        EXPECT_EQ(received.size(), size);
        EXPECT_EQ(ends.front().isComplete, !error);
        EXPECT_EQ(ends.front().error, error);
    }
}

TEST_F(TcpConnectionTest, WaitsForAPeerThatRefusesAndConnectsOnceItIsThere)
{
    const auto endpoint = here();
    server.close();
    open(endpoint);
    const TcpConnection::State waiting = TcpConnection::Waiting{refused};
    EXPECT_TRUE(pump([&] { return !states.empty(); }));
    EXPECT_EQ(states, std::vector{waiting});

    // Still refused at the second attempt: the state does not change, so nobody is told again.
    queue.advance(1s);
    pumpUntilIdle({&queue});
    EXPECT_EQ(states, std::vector{waiting});

    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, endpoint.port));
    EXPECT_TRUE(pump([&] { return queue.waitingCount() > 0; }));
    queue.advance(1s);
    EXPECT_TRUE(pump([&] { return connection->isReady(); }));
}

TEST_F(TcpConnectionTest, CancelledIsOverInEveryState)
{
    const auto closed = [this] {
        const auto endpoint = here();
        server.close();
        return endpoint;
    }();
    open(closed);
    EXPECT_TRUE(pump([&] { return !states.empty(); }));
    connection->cancel();
    connection->cancel();
    queue.runReady();
    EXPECT_EQ(states.back(), TcpConnection::State(TcpConnection::Cancelled{}));
    EXPECT_EQ(states.size(), 2U);
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, closed.port));
    queue.advance(10s);
    pumpUntilIdle({&queue});
    EXPECT_FALSE(server.hasPendingConnections());

    std::optional<QString> error;
    connection->send("late", [&](const auto& reported) { error = reported; });
    queue.runReady();
    EXPECT_TRUE(error);
}

TEST_F(TcpConnectionTest, DroppingItClosesThePeersEnd)
{
    open(here());
    auto* const peer = accept();
    connection.reset();
    EXPECT_TRUE(pump([&] { return peer->state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_EQ(states.size(), 1U);
}

TEST_F(TcpConnectionTest, FindsAServiceAnewAtEachAttempt)
{
    const ServiceEndpoint service{u"Hub"_s, u"_videohub._tcp"_s, u"local."_s};
    int searches = 0;
    open(service, [&](const ServiceEndpoint& wanted, const std::function<void(ServiceResolution)>& done) {
        EXPECT_EQ(wanted, service);
        done(++searches == 1 ? ServiceResolution(u"not yet"_s) : ServiceResolution(here()));
        return std::make_shared<int>();
    });
    EXPECT_TRUE(pump([&] { return !states.empty(); }));
    EXPECT_EQ(states.front(), TcpConnection::State(TcpConnection::Waiting{u"not yet"_s}));
    queue.advance(1s);
    EXPECT_TRUE(pump([&] { return connection->isReady(); }));
}

TEST_F(TcpConnectionTest, AReaderThatDoesNotAskOrPausesSlowsThePeerDown)
{
    for (const bool asks : {false, true}) {
        received.clear();
        connection = TcpConnection::make(here(), queue, noService);
        connection->start();
        auto* const peer = accept();
        if (asks) {
            read();
            connection->pauseReading();
        }
        constexpr qint64 tooMuchForAnyKernelBuffer = 64'000'000;
        peer->write(QByteArray(tooMuchForAnyKernelBuffer, 'x'));
        pumpUntilIdle({&queue});
        EXPECT_GT(peer->bytesToWrite(), tooMuchForAnyKernelBuffer / 4);
        EXPECT_EQ(received.size(), 0);
        if (asks)
            connection->resumeReading();
        else
            read();
        EXPECT_TRUE(pump([&] { return received.size() == tooMuchForAnyKernelBuffer; }));
    }
}

} // namespace

} // namespace corvane
