#pragma once

#include <QTcpSocket>

#include <sys/resource.h>
#include <sys/socket.h>

namespace corvane {

/// Breaks a connection off instead of closing it.
inline void reset(QTcpSocket& socket)
{
    constexpr linger noLinger{.l_onoff = 1, .l_linger = 0};
    ::setsockopt(
        static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &noLinger, sizeof noLinger);
    socket.abort();
}

/// While it exists the system has no socket and no file left for this process.
class NoDescriptorsLeft {
public:
    NoDescriptorsLeft()
    {
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        auto none = m_before;
        none.rlim_cur = 0;
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    NoDescriptorsLeft(const NoDescriptorsLeft&) = delete;
    NoDescriptorsLeft& operator=(const NoDescriptorsLeft&) = delete;
    ~NoDescriptorsLeft() { ::setrlimit(RLIMIT_NOFILE, &m_before); }

private:
    rlimit m_before{};
};

} // namespace corvane
