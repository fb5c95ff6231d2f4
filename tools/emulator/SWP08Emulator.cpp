#include "emulator/SWP08Emulator.h"

#include "emulator/SWP08Session.h"

namespace corvane::emulator {

SWP08Emulator::SWP08Emulator(EmulatedMatrix& matrix, quint16 port, QObject* parent)
    : EmulatorServer(matrix, port, parent)
{
}

std::unique_ptr<EmulatorSession> SWP08Emulator::openSession(EmulatorConnection& connection)
{
    return std::make_unique<SWP08Session>(*this, connection);
}

QByteArray SWP08Emulator::halfMessage() const
{
    // Ends behind a DLE, and everything but the end of the frame was there: destination 0 on source 1.
    return swp08::frame(QByteArrayLiteral("\x04\x00\x00\x00\x01")).chopped(1);
}

} // namespace corvane::emulator
