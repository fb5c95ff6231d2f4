#pragma once

#include "emulator/EmulatorServer.h"
#include "emulator/VideohubWriter.h"

#include <optional>

namespace corvane::emulator {

/// A Blackmagic Videohub on loopback: shows level 0 of its matrix, with labels and locks, to any number of
/// clients.
class VideohubEmulator : public EmulatorServer {
    Q_OBJECT

public:
    /// Listens at once; see `isListening()`. Port 0 is any free one. The matrix must outlive the emulator.
    explicit VideohubEmulator(EmulatedMatrix& matrix, quint16 port = 0, QObject* parent = nullptr);

    /// Both may be changed at any moment and hold for what is said from then on.
    VideohubQuirks& quirks() { return m_quirks; }
    VideohubIdentity& identity() { return m_identity; }

    /// Greets with these bytes, exactly, from now on, and makes the matrix the one they tell of.
    /// False if they tell no size: the matrix then stays what it is.
    bool playCapture(const QByteArray& greeting);
    std::optional<QByteArray> capture() const { return m_capture; }

    /// Every complete block clients have sent, in the order they came, without the closing blank line.
    QList<QByteArray> receivedBlocks() const { return receivedMessages(); }

protected:
    std::unique_ptr<EmulatorSession> openSession(EmulatorConnection& connection) override;
    QByteArray halfMessage() const override;

private:
    VideohubQuirks m_quirks;
    VideohubIdentity m_identity;
    std::optional<QByteArray> m_capture;
};

} // namespace corvane::emulator
