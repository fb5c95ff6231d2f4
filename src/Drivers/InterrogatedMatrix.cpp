#include "Drivers/InterrogatedMatrix.h"

#include "Drivers/Ports.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

qint64 usableCount(qint64 saved, const InterrogatedProtocol& protocol)
{
    return std::clamp(saved, InterrogatedMatrix::minimumPortCount, protocol.maximumPortCount);
}

bool isBelow(qint64 index, qint64 count)
{
    return index >= 0 && index < count;
}

} // namespace

InterrogatedMatrix::InterrogatedMatrix(const RouterConnection& connection, InterrogatedProtocol protocol,
    SerialQueue& queue, RouterEventStream events)
    : m_deviceName(connection.name),
      m_protocol(std::move(protocol)),
      m_sourceCount(usableCount(connection.simSourceCount, m_protocol)),
      m_destinationCount(usableCount(connection.simDestinationCount, m_protocol)),
      m_events(std::move(events)),
      m_finalizeTimer(queue, answersQuiet, [this] { finalize(); }),
      m_speechCheck(queue, speechLimit, [this] { checkSpeech(); })
{
}

bool InterrogatedMatrix::report(const Route& route)
{
    m_reportReceived = true;
    if (!isBelow(route.destination, m_destinationCount) || !isBelow(route.source, m_sourceCount)) {
        warnOfSize();
        return false;
    }
    if (!m_connectedEmitted) {
        m_routing.set(route.destination, route.source);
        m_isGathering = true;
        return true;
    }
    auto* const known = m_routing.find(route.destination);
    if (known && *known == route.source)
        return true;
    m_routing.set(route.destination, route.source);
    m_batch.emplace_back(driverEvent::RouteChanged{route.level, route.destination, route.source});
    return true;
}

void InterrogatedMatrix::refuse(const QString& message)
{
    m_batch.emplace_back(driverEvent::CommandRefused{message});
}

void InterrogatedMatrix::flush()
{
    // Once for a whole delivery: reading the clock costs as much as reading a report.
    if (std::exchange(m_isGathering, false))
        m_finalizeTimer.restart();
    m_events.yield(std::move(m_batch));
}

void InterrogatedMatrix::warnOfSize()
{
    if (std::exchange(m_rangeWarned, true))
        return;
    refuse(QStringLiteral("The device reports ports beyond the configured %1 — increase the matrix size in "
                          "this router's settings.")
               .arg(sizeText()));
}

void InterrogatedMatrix::checkSpeech()
{
    if (m_reportReceived)
        return;
    m_batch.emplace_back(driverEvent::Error{
        QStringLiteral("The device answered TCP but spoke no %1 — check the port and matrix size.")
            .arg(m_protocol.name)});
    flush();
}

void InterrogatedMatrix::finalize()
{
    m_connectedEmitted = true;
    m_batch.emplace_back(driverEvent::Connected{completeState()});
    flush();
}

QString InterrogatedMatrix::sizeText() const
{
    return QStringLiteral("%1×%2").arg(m_sourceCount).arg(m_destinationCount);
}

RouterState InterrogatedMatrix::completeState() const
{
    RouterState state;
    state.deviceName = m_deviceName;
    state.model = m_protocol.name + u' ' + sizeText();
    state.vendor = m_protocol.vendor;
    state.sources = portList(PortKind::source, m_sourceCount);
    state.destinations = portList(PortKind::destination, m_destinationCount);
    state.levels = onlyVideoLevel();
    LevelRouting routing;
    routing.reserve(m_destinationCount);
    m_routing.forEach([&](qint64 destination, qint64 source) { routing.insert(destination, source); });
    state.routing.insert(0, routing);
    return state;
}

} // namespace corvane
