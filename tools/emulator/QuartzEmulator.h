#pragma once

#include "emulator/EmulatorServer.h"

namespace corvane::emulator {

/// How routers differ that speak this protocol. The simplest of them has none of it.
struct QuartzQuirks {
    enum class LineEnd { Cr, Lf, CrLf };
    LineEnd lineEnd = LineEnd::Cr;
    /// What a command that cannot be done is answered with, "?" or ".E", and a question about a port that
    /// isn't there. Nothing is said where empty.
    QByteArray refusal = "?";
    /// Numbers have at least three digits.
    bool padNumbers = false;
    /// A take is answered with ".A" before the update tells of it.
    bool acknowledgeLines = false;
    /// A take of what is there already gets no answer.
    bool ignoreRepeats = false;
    /// Before each answer stands an update of another destination.
    bool interposeUpdates = false;
    /// Clients hear each other's lines, as on one serial bus.
    bool echoOthers = false;
    /// A well-formed question about a port that isn't there gets no answer.
    bool ignoreAbsentPorts = false;
};

/// A router that speaks the Quartz protocol: shows its matrix to any number of clients, level 0 as V and
/// the others as A, B, C and so on. What another face locked is refused.
class QuartzEmulator : public EmulatorServer {
    Q_OBJECT

public:
    /// Listens at once; see `isListening()`. Port 0 is any free one. The matrix must outlive the emulator.
    explicit QuartzEmulator(EmulatedMatrix& matrix, quint16 port = 0, QObject* parent = nullptr);

    /// May be changed at any moment and hold for what is said from then on.
    QuartzQuirks& quirks() { return m_quirks; }

    /// Says what a router says that has just been switched on. The clients stay, and so does the matrix.
    void powerUp() { emit poweredUp(); }

signals:
    void poweredUp();
    void heard(const QByteArray& line, corvane::emulator::ClientId from);

protected:
    std::unique_ptr<EmulatorSession> openSession(EmulatorConnection& connection) override;
    QByteArray halfMessage() const override;

private:
    QuartzQuirks m_quirks;
};

} // namespace corvane::emulator
