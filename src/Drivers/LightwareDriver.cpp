#include "Drivers/LightwareDriver.h"

#include "Foundation/EventLoopQueue.h"

#include <utility>

namespace corvane {

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
    return label.replace(u';', u',').replace(u'\r', u' ').replace(u'\n', u' ').toUtf8();
}

} // namespace

SerialQueue& LightwareDriver::classQueue()
{
    static ThreadQueue queue(QStringLiteral("lightware.driver"));
    return queue;
}

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
        send(commands, LW3Parser::Command::route);
    co_return;
}

QCoro::Task<> LightwareDriver::setLock(qint64 destination, qint64 /*level*/, bool locked)
{
    const auto* const method = locked ? "lockDestination" : "unlockDestination";
    send({call(method, portName(PortKind::destination, destination))}, LW3Parser::Command::lock);
    co_return;
}

QCoro::Task<> LightwareDriver::setLabel(QString label, qint64 index, PortKind kind)
{
    QByteArray prefix;
    queue().sync([&] { prefix = m_parser->namePrefix(kind, index); });
    send({"SET /MEDIA/NAMES/VIDEO." + portName(kind, index) + '=' + prefix + ';'
             + cleanLabel(std::move(label))},
        LW3Parser::Command::rename);
    co_return;
}

void LightwareDriver::attachParser(const std::weak_ptr<TcpConnection>& connection)
{
    m_parser->onSend([connection](const QByteArray& lines) { sendFromParser(connection, lines); });
}

QString LightwareDriver::readyText() const
{
    return QStringLiteral("Reading router state…");
}

void LightwareDriver::send(const QByteArrayList& commands, LW3Parser::Command kind) const
{
    requireReady();
    QByteArray lines;
    queue().sync([&] {
        for (const auto& command : commands)
            lines += m_parser->registerCommand(kind) + '#' + command + LW3Parser::lineEnd;
    });
    TcpDriver::send(lines, [parser = m_parser] { parser->resyncFromSendFailure(); });
}

} // namespace corvane
