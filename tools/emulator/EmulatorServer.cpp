#include "emulator/EmulatorServer.h"

#include <QHostAddress>

#include <algorithm>
#include <utility>

namespace corvane::emulator {

EmulatorServer::EmulatorServer(EmulatedMatrix& matrix, quint16 port, QObject* parent)
    : QObject(parent), m_matrix(matrix)
{
    connect(&m_server, &QTcpServer::newConnection, this, &EmulatorServer::acceptClients);
    if (m_server.listen(QHostAddress::LocalHost, port))
        m_port = m_server.serverPort();
}

bool EmulatorServer::listenAgain()
{
    return m_server.isListening() || m_server.listen(QHostAddress::LocalHost, m_port);
}

bool EmulatorServer::hasSaidAll() const
{
    return std::ranges::all_of(m_connections, &EmulatorConnection::hasSentAll);
}

void EmulatorServer::dropClients(Drop how)
{
    // Closing takes a connection out of the list.
    const auto connections = m_connections;
    for (auto* connection : connections)
        how == Drop::AtOnce ? connection->drop() : connection->dropAfter(halfMessage());
}

void EmulatorServer::release()
{
    for (auto* connection : std::as_const(m_connections))
        connection->release();
}

void EmulatorServer::releaseOldest()
{
    const auto holding = std::ranges::find_if_not(m_connections, &EmulatorConnection::hasSentAll);
    if (holding != m_connections.end())
        (*holding)->release();
}

void EmulatorServer::acceptClients()
{
    while (auto* socket = m_server.nextPendingConnection())
        welcome(socket);
}

void EmulatorServer::welcome(QTcpSocket* socket)
{
    auto* connection = new EmulatorConnection(socket, m_matrix.nextClientId(), m_faults, this);
    auto* session = openSession(*connection).release();
    session->setParent(connection);
    m_connections << connection;

    connect(connection, &EmulatorConnection::received, session, [this, session](const QByteArray& bytes) {
        m_receivedBytes += bytes;
        session->received(bytes);
    });
    connect(connection, &EmulatorConnection::closed, this, [this, connection] {
        m_connections.removeOne(connection);
        connection->deleteLater();
    });
    session->greet();
}

} // namespace corvane::emulator
