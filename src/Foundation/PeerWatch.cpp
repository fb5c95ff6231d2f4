#include "Foundation/PeerWatch.h"

#include <chrono>

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace corvane {

namespace {

using namespace std::chrono_literals;

// An idle link is probed after five seconds, and given up when nothing was acknowledged for ten.
constexpr auto idleBeforeProbe = 5s;
constexpr auto betweenProbes = 2s;
constexpr int probes = 3;
constexpr std::chrono::milliseconds unacknowledged = 10s;

/// What can't be set stays as the system has it: the connection works without.
void set(int descriptor, int level, int option, int value)
{
    ::setsockopt(descriptor, level, option, &value, sizeof value);
}

int seconds(std::chrono::seconds duration)
{
    return static_cast<int>(duration.count());
}

} // namespace

PeerWatch::PeerWatch(qintptr descriptor)
    : m_descriptor(::fcntl(static_cast<int>(descriptor), F_DUPFD_CLOEXEC, 0))
{
    set(m_descriptor, SOL_SOCKET, SO_KEEPALIVE, 1);
    set(m_descriptor, IPPROTO_TCP, TCP_KEEPIDLE, seconds(idleBeforeProbe));
    set(m_descriptor, IPPROTO_TCP, TCP_KEEPINTVL, seconds(betweenProbes));
    set(m_descriptor, IPPROTO_TCP, TCP_KEEPCNT, probes);
    set(m_descriptor, IPPROTO_TCP, TCP_USER_TIMEOUT, static_cast<int>(unacknowledged.count()));
}

PeerWatch::~PeerWatch()
{
    ::close(m_descriptor);
}

/// After the peer's orderly end the connection is half open, for we have not ended our half.
bool PeerWatch::wasReset() const
{
    tcp_info info{};
    socklen_t size = sizeof info;
    return ::getsockopt(m_descriptor, IPPROTO_TCP, TCP_INFO, &info, &size) == 0
        && info.tcpi_state == TCP_CLOSE;
}

} // namespace corvane
