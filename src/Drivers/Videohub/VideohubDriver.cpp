#include "Drivers/Videohub/VideohubDriver.h"

#include "Foundation/Text.h"

#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QByteArray line(qint64 port, const QByteArray& value)
{
    return QByteArray::number(port) + ' ' + value;
}

} // namespace

VideohubDriver::VideohubDriver(
    const RouterConnection& connection, SerialQueue& queue, ServiceResolver resolver)
    : TcpDriver(connection, queue, std::move(resolver)),
      m_parser(makeParser<VideohubParser>(queue, connection.name, queue, events()))
{
}

QCoro::Task<> VideohubDriver::take(qint64 source, qint64 destination, qint64 level)
{
    return takeAll({Route{level, destination, source}});
}

QCoro::Task<> VideohubDriver::takeAll(QList<Route> routes)
{
    QByteArrayList lines;
    lines.reserve(routes.size());
    for (const auto& route : std::as_const(routes))
        lines.append(line(route.destination, QByteArray::number(route.source)));
    sendBlock("VIDEO OUTPUT ROUTING:", lines);
    co_return;
}

QCoro::Task<> VideohubDriver::setLock(qint64 destination, qint64 /*level*/, bool locked)
{
    bool hasLocks = false;
    char reported = 'U';
    queue().sync([&] {
        hasLocks = m_parser->locksSeen();
        reported = m_parser->lockLetter(destination);
    });
    if (!hasLocks)
        throw DriverError::unsupported(feature::locking);
    // What another client has locked must be forced open.
    const auto* const unlock = reported == 'L' ? "F" : "U";
    sendBlock("VIDEO OUTPUT LOCKS:", {line(destination, locked ? "O" : unlock)});
    co_return;
}

QCoro::Task<> VideohubDriver::setLabel(QString label, qint64 index, PortKind kind)
{
    const auto* const header = kind == PortKind::source ? "INPUT LABELS:" : "OUTPUT LABELS:";
    sendBlock(header, {line(index, text::onOneLine(std::move(label)).toUtf8())});
    co_return;
}

QString VideohubDriver::readyText() const
{
    return u"Reading router state…"_s;
}

std::optional<ServiceEndpoint> VideohubDriver::service() const
{
    const auto& info = connectionInfo();
    if (!info.bonjourName || !info.bonjourType)
        return std::nullopt;
    return ServiceEndpoint{*info.bonjourName, *info.bonjourType, info.bonjourDomain.value_or(u"local."_s)};
}

QString VideohubDriver::noAddressText() const
{
    return u"No address for this router. Edit it and set a host, or re-add it from discovery."_s;
}

void VideohubDriver::sendBlock(const QByteArray& header, const QByteArrayList& lines) const
{
    sendCommand(header + '\n' + lines.join('\n') + "\n\n", [parser = m_parser] { parser->requestResync(); });
}

} // namespace corvane
