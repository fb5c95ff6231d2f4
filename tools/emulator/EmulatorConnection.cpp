#include "emulator/EmulatorConnection.h"

#include <algorithm>

namespace corvane::emulator {

EmulatorConnection::EmulatorConnection(QTcpSocket* socket, ClientId id, const Faults& faults, QObject* parent)
    : QObject(parent), m_socket(socket), m_id(id), m_faults(faults)
{
    m_socket->setParent(this);
    // Otherwise the system would join small pieces again.
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_nextPiece.setSingleShot(true);
    connect(&m_nextPiece, &QTimer::timeout, this, &EmulatorConnection::writeNextPiece);
    connect(m_socket, &QTcpSocket::readyRead, this, [this] { emit received(m_socket->readAll()); });
    connect(m_socket, &QTcpSocket::disconnected, this, &EmulatorConnection::closed);
}

void EmulatorConnection::send(const QByteArray& bytes)
{
    if (m_faults.silent || m_socket->state() != QAbstractSocket::ConnectedState)
        return;
    const qsizetype step = m_faults.pieceSize > 0 ? m_faults.pieceSize : std::max<qsizetype>(bytes.size(), 1);
    for (qsizetype begin = 0; begin < bytes.size(); begin += step)
        m_outgoing.push_back({bytes.mid(begin, step), m_faults.hold});
    scheduleNextPiece();
}

void EmulatorConnection::release()
{
    for (auto& piece : m_outgoing)
        piece.isHeld = false;
    scheduleNextPiece();
}

void EmulatorConnection::finish()
{
    m_finishing = !m_faults.silent;
    if (m_finishing && m_outgoing.empty())
        m_socket->disconnectFromHost();
}

void EmulatorConnection::drop()
{
    m_outgoing.clear();
    m_socket->abort();
}

void EmulatorConnection::dropAfter(const QByteArray& lastWords)
{
    m_outgoing.clear();
    m_socket->write(lastWords);
    m_socket->disconnectFromHost();
}

void EmulatorConnection::scheduleNextPiece()
{
    if (!m_outgoing.empty() && !m_outgoing.front().isHeld)
        m_nextPiece.start(0);
}

void EmulatorConnection::writeNextPiece()
{
    if (!m_outgoing.empty() && !m_outgoing.front().isHeld) {
        const auto piece = std::move(m_outgoing.front());
        m_outgoing.pop_front();
        write(piece.bytes);
        if (m_outgoing.empty())
            emit allSent();
        if (m_outgoing.empty() && m_finishing)
            m_socket->disconnectFromHost();
    }
    scheduleNextPiece();
}

void EmulatorConnection::write(const QByteArray& bytes)
{
    const qint64 allowed = m_faults.closeAfterBytes.value_or(m_bytesSent + bytes.size() + 1) - m_bytesSent;
    if (bytes.size() >= allowed) {
        dropAfter(bytes.left(std::max<qint64>(allowed, 0)));
        return;
    }
    m_bytesSent += bytes.size();
    m_socket->write(bytes);
    m_socket->flush();
}

} // namespace corvane::emulator
