#pragma once

#include "emulator/EmulatorServer.h"
#include "emulator/SWP08Writer.h"

namespace corvane::emulator {

/// A router that speaks Pro-Bel SW-P-08: shows every level of its matrix, as matrix 0, to any number of
/// clients. Ports have neither names nor locks of their own here; what another face locked is refused.
class SWP08Emulator : public EmulatorServer {
    Q_OBJECT

public:
    /// Listens at once; see `isListening()`. Port 0 is any free one. The matrix must outlive the emulator.
    explicit SWP08Emulator(EmulatedMatrix& matrix, quint16 port = 0, QObject* parent = nullptr);

    /// May be changed at any moment and hold for what is said from then on.
    SWP08Quirks& quirks() { return m_quirks; }

    /// Sends a message of any kind to every client.
    void tellAll(const QByteArray& payload) { emit told(payload); }

    /// How many of our messages clients have acknowledged and refused.
    int acknowledgements() const { return m_acknowledgements; }
    int refusals() const { return m_refusals; }
    void countAcknowledgement() { ++m_acknowledgements; }
    void countRefusal() { ++m_refusals; }

signals:
    void told(const QByteArray& payload);

protected:
    std::unique_ptr<EmulatorSession> openSession(EmulatorConnection& connection) override;
    QByteArray halfMessage() const override;

private:
    SWP08Quirks m_quirks;
    int m_acknowledgements = 0;
    int m_refusals = 0;
};

} // namespace corvane::emulator
