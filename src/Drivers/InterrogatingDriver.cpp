#include "Drivers/InterrogatingDriver.h"

namespace corvane {

QCoro::Task<> InterrogatingDriver::take(qint64 source, qint64 destination, qint64 level)
{
    return takeAll({Route{level, destination, source}});
}

QCoro::Task<> InterrogatingDriver::takeAll(QList<Route> routes)
{
    if (routes.isEmpty())
        co_return;
    requireReady();
    QByteArrayList commands;
    commands.reserve(routes.size());
    // One hop for all of them: the thread behind it may be busy with another router.
    queue().sync([&] {
        for (const auto& route : std::as_const(routes))
            commands.append(m_parser->commandFor(route));
    });
    for (qsizetype i = 0; i < routes.size(); ++i) {
        send(commands.at(i), [parser = m_parser, destination = routes.at(i).destination] {
            parser->commandNotSent(destination);
        });
    }
}

QCoro::Task<> InterrogatingDriver::setLock(qint64, qint64, bool)
{
    throw DriverError::unsupported(feature::locking);
    co_return;
}

QCoro::Task<> InterrogatingDriver::setLabel(QString, qint64, PortKind)
{
    throw DriverError::unsupported(feature::renaming);
    co_return;
}

void InterrogatingDriver::attachParser(const std::weak_ptr<TcpConnection>& connection)
{
    m_parser->onSend([connection](const QByteArray& bytes) { sendFromParser(connection, bytes); });
}

QString InterrogatingDriver::readyText() const
{
    return QStringLiteral("Interrogating crosspoints…");
}

} // namespace corvane
