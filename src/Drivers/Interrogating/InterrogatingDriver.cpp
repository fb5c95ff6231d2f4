#include "Drivers/Interrogating/InterrogatingDriver.h"

namespace corvane {

using namespace Qt::StringLiterals;

QCoro::Task<> InterrogatingDriver::take(qint64 source, qint64 destination, qint64 level)
{
    return takeAll({Route{level, destination, source}});
}

QCoro::Task<> InterrogatingDriver::takeAll(QList<Route> routes)
{
    if (routes.isEmpty())
        co_return;
    requireReady();
    // One hop for all of them: the thread behind it may be busy with another router. And they are sent in it:
    // answers are told apart by their order alone, so no question of the parser's may get between a command
    // being noted and its being sent.
    queue().sync([&] {
        for (const auto& route : std::as_const(routes)) {
            writeToLink(m_parser->commandFor(route), [parser = m_parser, destination = route.destination] {
                parser->commandNotSent(destination);
            });
        }
    });
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

QString InterrogatingDriver::readyText() const
{
    return u"Interrogating crosspoints…"_s;
}

} // namespace corvane
