#pragma once

#include "emulator/EmulatorServer.h"
#include "support/Pump.h"

#include <QByteArray>
#include <QHostAddress>
#include <QTcpSocket>

#include <gtest/gtest.h>

namespace corvane::emulator {

/// A client that knows nothing of any protocol: it sends bytes and keeps what comes back.
class RawClient {
public:
    explicit RawClient(const EmulatorServer& server)
    {
        QObject::connect(&m_socket, &QTcpSocket::readyRead, [this] {
            m_received += m_socket.readAll();
            ++m_deliveries;
        });
        m_socket.connectToHost(QHostAddress::LocalHost, server.port());
    }

    void send(const QByteArray& bytes) { m_socket.write(bytes); }

    /// Waits until as many bytes as in `expected` have come, and takes them out.
    QByteArray next(const QByteArray& expected)
    {
        EXPECT_TRUE(pumpUntil([&] { return m_received.size() >= expected.size() || isClosed(); }));
        const auto bytes = m_received.left(expected.size());
        m_received.remove(0, expected.size());
        return bytes;
    }

    /// Waits for everything up to `end`, and throws it away.
    void skipTo(const QByteArray& end)
    {
        ASSERT_TRUE(pumpUntil([&] { return m_received.endsWith(end); }));
        m_received.clear();
    }

    bool isConnected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }
    bool isClosed() const { return m_socket.error() == QAbstractSocket::RemoteHostClosedError; }
    bool isRefused() const { return m_socket.error() == QAbstractSocket::ConnectionRefusedError; }
    QByteArray received() const { return m_received; }
    int deliveries() const { return m_deliveries; }

private:
    QTcpSocket m_socket;
    QByteArray m_received;
    int m_deliveries = 0;
};

} // namespace corvane::emulator

#define EXPECT_HEARS(client, bytes)                                                                          \
    EXPECT_EQ((client).next(bytes).toStdString(), QByteArray(bytes).toStdString())

namespace corvane::emulator {

/// Sends these bytes and checks what comes back, and that it is all that does.
inline void expectAnswer(RawClient& client, const QByteArray& sent, const QByteArray& heard)
{
    client.send(sent);
    EXPECT_HEARS(client, heard);
    pumpUntilIdle();
    EXPECT_EQ(client.received(), "");
}

} // namespace corvane::emulator
