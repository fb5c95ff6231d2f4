#pragma once

#include "emulator/EmulatedMatrix.h"
#include "emulator/Faults.h"

#include <QByteArray>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <deque>

namespace corvane::emulator {

/// The line to one client. Knows no protocol; holds back, cuts and swallows output as the faults say.
class EmulatorConnection : public QObject {
    Q_OBJECT

public:
    /// Takes the socket over. `faults` must outlive the connection.
    EmulatorConnection(QTcpSocket* socket, ClientId id, const Faults& faults, QObject* parent);

    ClientId id() const { return m_id; }

    void send(const QByteArray& bytes);

    /// Whether nothing waits to go out.
    bool hasSentAll() const { return m_outgoing.empty(); }
    /// Lets go what the fault `hold` has kept back so far.
    void release();

    /// Closes as soon as everything said has gone out; a silent device keeps the line open.
    void finish();

    /// Closes at once and forgets what was not sent yet.
    void drop();

    /// Forgets what was not sent yet, says these last words and closes.
    void dropAfter(const QByteArray& lastWords);

signals:
    void received(const QByteArray& bytes);
    /// Everything said so far has gone out.
    void allSent();
    void closed();

private:
    struct Piece {
        QByteArray bytes;
        bool isHeld = false;
    };

    void scheduleNextPiece();
    void writeNextPiece();
    void write(const QByteArray& bytes);

    QTcpSocket* m_socket;
    const ClientId m_id;
    const Faults& m_faults;
    std::deque<Piece> m_outgoing;
    QTimer m_nextPiece;
    qint64 m_bytesSent = 0;
    bool m_finishing = false;
};

} // namespace corvane::emulator
