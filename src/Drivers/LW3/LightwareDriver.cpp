#include "Drivers/LW3/LightwareDriver.h"

#include "Drivers/LW3/LW3Value.h"
#include "Foundation/Text.h"

#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QByteArray portName(PortKind kind, qint64 index)
{
    return (kind == PortKind::source ? 'I' : 'O') + QByteArray::number(oneBased(index));
}

/// Calls a method of the crosspoints.
QByteArray call(const QByteArray& method, const QByteArray& argument)
{
    return "CALL /MEDIA/XP/VIDEO:" + method + '(' + argument + ')';
}

QByteArray cleanLabel(QString label)
{
    return lw3Value::fromText(text::onOneLine(label.replace(u';', u',')));
}

} // namespace

LightwareDriver::LightwareDriver(const RouterConnection& connection, SerialQueue& queue)
    : TcpDriver(connection, queue), m_parser(makeParser<LW3Parser>(queue, connection.name, queue, events()))
{
}

QCoro::Task<> LightwareDriver::take(qint64 source, qint64 destination, qint64 level)
{
    return takeAll({Route{level, destination, source}});
}

QCoro::Task<> LightwareDriver::takeAll(QList<Route> routes)
{
    QByteArrayList commands;
    commands.reserve(routes.size());
    for (const auto& route : std::as_const(routes))
        commands.append(call("switch",
            portName(PortKind::source, route.source) + ':'
                + portName(PortKind::destination, route.destination)));
    if (!commands.isEmpty())
        sendSigned(commands, LW3Parser::Command::route);
    co_return;
}

QCoro::Task<> LightwareDriver::setLock(qint64 destination, qint64 /*level*/, bool locked)
{
    const auto* const method = locked ? "lockDestination" : "unlockDestination";
    sendSigned({call(method, portName(PortKind::destination, destination))}, LW3Parser::Command::lock);
    co_return;
}

QCoro::Task<> LightwareDriver::setLabel(QString label, qint64 index, PortKind kind)
{
    QByteArray prefix;
    queue().sync([&] { prefix = m_parser->namePrefix(kind, index); });
    sendSigned({"SET /MEDIA/NAMES/VIDEO." + portName(kind, index) + '=' + prefix + ';'
                   + cleanLabel(std::move(label))},
        LW3Parser::Command::rename);
    co_return;
}

QString LightwareDriver::readyText() const
{
    return u"Reading router state…"_s;
}

void LightwareDriver::sendSigned(const QByteArrayList& commands, LW3Parser::Command kind) const
{
    requireReady();
    QByteArray lines;
    queue().sync([&] {
        for (const auto& command : commands)
            lines += m_parser->registerCommand(kind) + '#' + command + LW3Parser::lineEnd;
    });
    writeToLink(lines, [parser = m_parser] { parser->resyncFromSendFailure(); });
}

} // namespace corvane
