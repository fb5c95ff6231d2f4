#include "Drivers/DriverError.h"

namespace corvane {

DriverError::DriverError(Kind kind, QString detail)
    : m_kind(kind), m_detail(std::move(detail)), m_what(errorDescription().toStdString())
{
}

QString DriverError::errorDescription() const
{
    switch (m_kind) {
    case Kind::unsupported:
        return QStringLiteral("%1 isn't supported by this router.").arg(m_detail);
    case Kind::protocolError:
        return QStringLiteral("Protocol error: %1").arg(m_detail);
    case Kind::transport:
        return QStringLiteral("Connection error: %1").arg(m_detail);
    case Kind::notConnected:
        break;
    }
    return QStringLiteral("Not connected to the router.");
}

} // namespace corvane
