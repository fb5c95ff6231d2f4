#include "emulator/QuartzEmulator.h"

#include "emulator/QuartzSession.h"

namespace corvane::emulator {

QuartzEmulator::QuartzEmulator(EmulatedMatrix& matrix, quint16 port, QObject* parent)
    : EmulatorServer(matrix, port, parent)
{
    connect(&matrix, &EmulatedMatrix::replaced, this, &QuartzEmulator::powerUp);
}

std::unique_ptr<EmulatorSession> QuartzEmulator::openSession(EmulatorConnection& connection)
{
    return std::make_unique<QuartzSession>(*this, connection);
}

QByteArray QuartzEmulator::halfMessage() const
{
    // Source 12, say, where a hasty reader would already see source 1.
    return ".UV1,1";
}

} // namespace corvane::emulator
