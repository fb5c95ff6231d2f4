#include "Drivers/Contract/DriverError.h"

namespace corvane {

using namespace Qt::StringLiterals;

DriverError::DriverError(Kind kind, QString detail)
    : m_kind(kind), m_detail(std::move(detail)), m_what(errorDescription().toStdString())
{
}

QString DriverError::errorDescription() const
{
    switch (m_kind) {
    case Kind::unsupported:
        return u"%1 isn't supported by this router."_s.arg(m_detail);
    case Kind::protocolError:
        return u"Protocol error: %1"_s.arg(m_detail);
    case Kind::transport:
        return u"Connection error: %1"_s.arg(m_detail);
    case Kind::notConnected:
        break;
    }
    return u"Not connected to the router."_s;
}

} // namespace corvane
