#include "emulator/VideohubEmulator.h"

#include "emulator/VideohubCapture.h"
#include "emulator/VideohubSession.h"

namespace corvane::emulator {

VideohubEmulator::VideohubEmulator(EmulatedMatrix& matrix, quint16 port, QObject* parent)
    : EmulatorServer(matrix, port, parent)
{
}

bool VideohubEmulator::playCapture(const QByteArray& greeting)
{
    m_capture = greeting;
    const auto state = readVideohubCapture(greeting);
    if (state)
        matrix().replace(*state);
    return state.has_value();
}

std::unique_ptr<EmulatorSession> VideohubEmulator::openSession(EmulatorConnection& connection)
{
    return std::make_unique<VideohubSession>(*this, connection);
}

QByteArray VideohubEmulator::halfMessage() const
{
    // Ends within a line, where a hasty reader would already see a route to source 1.
    return videohub::routingHeader + QByteArray("\n0 1");
}

} // namespace corvane::emulator
