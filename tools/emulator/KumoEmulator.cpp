#include "emulator/KumoEmulator.h"

#include "emulator/KumoSession.h"

namespace corvane::emulator {

KumoEmulator::KumoEmulator(EmulatedMatrix& matrix, quint16 port, QObject* parent)
    : EmulatorServer(matrix, port, parent)
{
}

std::unique_ptr<EmulatorSession> KumoEmulator::openSession(EmulatorConnection& connection)
{
    return std::make_unique<KumoSession>(*this, connection);
}

QByteArray KumoEmulator::halfMessage() const
{
    return "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: 40\r\n\r\n{\"value\":\"1";
}

} // namespace corvane::emulator
