#include "Foundation/TcpConnection.h"
#include "support/Pump.h"

#include <QDeadlineTimer>
#include <QProcess>

#include <gmock/gmock.h>

#include <utility>

#include <arpa/inet.h>
#include <fcntl.h>
#include <sched.h>
#include <sys/socket.h>
#include <unistd.h>

// A program of its own, as it leaves the machine's network for good. It waits for the time-outs of the
// system, which no queue of ours moves: eleven seconds, in which it does nothing.

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class Descriptor {
public:
    explicit Descriptor(int number = -1) : m_number(number) { }
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) { }
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isValid() const { return m_number >= 0; }

private:
    int m_number;
};

constexpr quint16 port = 9990;

bool run(const QString& command)
{
    QProcess process;
    process.startCommand(command);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0;
}

/// Moves this thread into a network that nobody else is in. Sockets stay in the one that they were made in.
Descriptor enterNewNetwork()
{
    return Descriptor(
        ::unshare(CLONE_NEWNET) == 0 ? ::open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC) : -1);
}

bool enter(const Descriptor& network)
{
    return ::setns(network.number(), CLONE_NEWNET) == 0;
}

/// Takes connections, and the system acknowledges what they bring.
Descriptor listen()
{
    Descriptor server(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_ANY);
    const bool listens =
        ::bind(server.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0
        && ::listen(server.number(), 2) == 0;
    return listens ? std::move(server) : Descriptor();
}

/// Two networks with a cable between them: a router stands in one, this thread in the other.
class Cable {
public:
    Cable()
    {
        m_theirs = enterNewNetwork();
        m_server = listen();
        m_ours = enterNewNetwork();
        m_isThere = m_server.isValid() && m_ours.isValid()
            && run(u"ip link add ours type veth peer name theirs netns /proc/%1/fd/%2"_s.arg(::getpid())
                       .arg(m_theirs.number()))
            && enter(m_theirs) && run(u"ip addr add 192.0.2.1/24 dev theirs"_s)
            && run(u"ip link set theirs up"_s) && enter(m_ours) && run(u"ip addr add 192.0.2.2/24 dev ours"_s)
            && run(u"ip link set ours up"_s);
    }

    [[nodiscard]] bool isThere() const { return m_isThere; }

    void pull() const { EXPECT_TRUE(enter(m_theirs) && run(u"ip link set theirs down"_s) && enter(m_ours)); }

private:
    Descriptor m_theirs;
    Descriptor m_server;
    Descriptor m_ours;
    bool m_isThere = false;
};

/// A connection to the router, and how it ended.
class Link {
public:
    explicit Link(SerialQueue& queue)
        : connection(TcpConnection::make(HostEndpoint{u"192.0.2.1"_s, port}, queue, {}))
    {
        connection->receive(1, [this](const TcpConnection::Delivery& delivery) { end = delivery; });
        connection->start();
    }

    std::shared_ptr<TcpConnection> connection;
    std::optional<TcpConnection::Delivery> end;
};

TEST(VanishedPeer, IsReportedWithinFifteenSecondsWhetherTheLinkIsIdleOrACommandIsUnderWay)
{
    const Cable cable;
    if (!cable.isThere())
        GTEST_SKIP() << "Network namespaces can't be made here: that takes root's rights and the command ip.";
    ManualQueue queue;
    Link idle(queue);
    Link busy(queue);
    const auto pump = [&](const auto& condition) { return pumpUntil(condition, {&queue}); };
    ASSERT_TRUE(pump([&] { return idle.connection->isReady() && busy.connection->isReady(); }));

    cable.pull();
    busy.connection->send("take", [](const auto& error) { EXPECT_FALSE(error); });
    const QDeadlineTimer limit(15s);
    ASSERT_TRUE(pump([&] { return (idle.end && busy.end) || limit.hasExpired(); }));
    for (const auto* const link : {&idle, &busy}) {
        ASSERT_TRUE(link->end);
        EXPECT_FALSE(link->end->isComplete);
        EXPECT_NE(link->end->error, std::nullopt);
    }
}

} // namespace

} // namespace corvane
