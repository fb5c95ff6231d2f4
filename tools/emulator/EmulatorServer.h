#pragma once

#include "emulator/EmulatedMatrix.h"
#include "emulator/EmulatorConnection.h"
#include "emulator/Faults.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QTcpServer>

#include <memory>

namespace corvane::emulator {

/// One client's conversation in one protocol. Lives exactly as long as its connection, and hears of
/// changes from the matrix itself, so what one client does is told to all.
class EmulatorSession : public QObject {
    Q_OBJECT

public:
    /// The client has just connected. Most protocols let it speak first.
    virtual void greet() { }
    /// Bytes as the network cut them.
    virtual void received(const QByteArray& bytes) = 0;
};

/// What the faces of a router share: the port on loopback, the clients and the faults.
///
/// A face derives from this, says how a session of its protocol begins and what half a message looks like.
/// Everything runs on the event loop of the thread the server is made on, and ends with the object.
class EmulatorServer : public QObject {
    Q_OBJECT

public:
    enum class Drop { AtOnce, InMidMessage };

    /// The port it listens on, or listened on before `stopListening()`; 0 if it never could.
    quint16 port() const { return m_port; }
    bool isListening() const { return m_server.isListening(); }
    QString errorText() const { return m_server.errorString(); }

    Faults& faults() { return m_faults; }
    EmulatedMatrix& matrix() { return m_matrix; }
    const EmulatedMatrix& matrix() const { return m_matrix; }

    int clientCount() const { return static_cast<int>(m_connections.size()); }
    void dropClients(Drop how = Drop::AtOnce);

    /// Whether nothing is held back any more of what clients are to hear.
    bool hasSaidAll() const;
    /// Lets go what the fault `hold` has kept back so far; what is said later is held again.
    void release();
    /// The same for one connection alone, the oldest that holds something back.
    void releaseOldest();

    /// New clients are refused from now on; those connected stay.
    void stopListening() { m_server.close(); }
    /// Opens the same port again. False if somebody else has taken it meanwhile.
    bool listenAgain();

    /// Everything clients have sent, in the order it came.
    QByteArray receivedBytes() const { return m_receivedBytes; }

    /// Every complete message among them, in the protocol's own form and without its framing.
    QList<QByteArray> receivedMessages() const { return m_receivedMessages; }
    /// Sessions note here what they have read, whether it makes sense or not.
    void record(const QByteArray& message) { m_receivedMessages << message; }

protected:
    /// Port 0 is any free one.
    EmulatorServer(EmulatedMatrix& matrix, quint16 port, QObject* parent);

    virtual std::unique_ptr<EmulatorSession> openSession(EmulatorConnection& connection) = 0;
    virtual QByteArray halfMessage() const = 0;

private:
    void acceptClients();
    void welcome(QTcpSocket* socket);

    EmulatedMatrix& m_matrix;
    Faults m_faults;
    QTcpServer m_server;
    quint16 m_port = 0;
    QList<EmulatorConnection*> m_connections;
    QByteArray m_receivedBytes;
    QList<QByteArray> m_receivedMessages;
};

} // namespace corvane::emulator
