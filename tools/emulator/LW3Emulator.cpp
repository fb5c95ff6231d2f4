#include "emulator/LW3Emulator.h"

#include "emulator/LW3Session.h"

namespace corvane::emulator {

LW3Emulator::LW3Emulator(EmulatedMatrix& matrix, quint16 port, QObject* parent)
    : EmulatorServer(matrix, port, parent), m_tree(matrix, m_quirks, m_device)
{
}

void LW3Emulator::setResolution(int input, const QByteArray& resolution)
{
    m_device.resolutions[input] = resolution;
    emit resolutionChanged(input);
}

std::unique_ptr<EmulatorSession> LW3Emulator::openSession(EmulatorConnection& connection)
{
    return std::make_unique<LW3Session>(*this, connection);
}

QByteArray LW3Emulator::halfMessage() const
{
    // Source 10, say, where a hasty reader would already see source 1.
    return QByteArray("CHG ") + lw3::crosspoints + '.' + lw3::routeList + "=I1";
}

} // namespace corvane::emulator
