#pragma once

#include <QtGlobal>

namespace corvane {

/// Sees what the socket of an open TCP connection does not tell by itself: that the peer has vanished without
/// a word, and that an end of the stream was a reset.
///
/// A peer that does not acknowledge anything, probes included, becomes an error of the socket within about
/// twelve seconds, whether the connection is idle or has bytes in flight.
class PeerWatch {
public:
    /// `descriptor` is of a connected socket.
    explicit PeerWatch(qintptr descriptor);
    PeerWatch(const PeerWatch&) = delete;
    PeerWatch& operator=(const PeerWatch&) = delete;
    ~PeerWatch();

    /// Whether the connection was broken off instead of closed in order. Also when the socket itself is
    /// closed; but the system keeps the connection open until this object is gone as well.
    [[nodiscard]] bool wasReset() const;

private:
    const int m_descriptor;
};

} // namespace corvane
