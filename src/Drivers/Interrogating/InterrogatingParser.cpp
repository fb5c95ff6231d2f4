#include "Drivers/Interrogating/InterrogatingParser.h"

#include "Drivers/Tcp/Ports.h"

#include <algorithm>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

qint64 usableCount(qint64 saved, const InterrogatedProtocol& protocol)
{
    return std::clamp(saved, InterrogatingParser::minimumPortCount, protocol.maximumPortCount);
}

bool isBelow(qint64 index, qint64 count)
{
    return index >= 0 && index < count;
}

} // namespace

InterrogatingParser::InterrogatingParser(const RouterConnection& connection, InterrogatedProtocol protocol,
    SerialQueue& queue, RouterEventStream events)
    : ProtocolParser(queue, std::move(events)),
      m_deviceName(connection.name),
      m_protocol(std::move(protocol)),
      m_sourceCount(usableCount(connection.simSourceCount, m_protocol)),
      m_destinationCount(usableCount(connection.simDestinationCount, m_protocol)),
      m_finalizeTimer(addTimer(
          answersQuiet, [this] { takePicture(); }, firstPictureLimit)),
      m_speechCheck(addTimer(speechLimit, [this] { checkSpeech(); })),
      m_rereadsEnd(addTimer(answersQuiet, [this] { endRereads(); }))
{
}

void InterrogatingParser::greet()
{
    for (qint64 destination = 0; destination < m_destinationCount; ++destination)
        interrogate(destination);
    m_speechCheck.restart();
}

void InterrogatingParser::flush()
{
    // Once for a whole delivery: reading the clock costs as much as reading a report.
    if (std::exchange(m_isGathering, false))
        m_finalizeTimer.restart();
    ProtocolParser::flush();
}

void InterrogatingParser::commandNotSent(qint64 destination)
{
    reread(destination);
    flush();
}

bool InterrogatingParser::report(const Route& route)
{
    m_reportReceived = true;
    if (isBelow(route.destination, m_destinationCount) && isBelow(route.source, m_sourceCount)) {
        learn(route.level, route.destination, route.source);
        return true;
    }
    warnOfSize();
    // The router shows something that can't be shown here, and in any case not what was asked for.
    if (isBeingReread(route.destination))
        learn(route.level, route.destination, std::nullopt);
    return false;
}

void InterrogatingParser::reportNothing(qint64 level, qint64 destination)
{
    m_reportReceived = true;
    if (isBelow(destination, m_destinationCount))
        learn(level, destination, std::nullopt);
    else
        warnOfSize();
}

void InterrogatingParser::learn(qint64 level, qint64 destination, std::optional<qint64> source)
{
    if (!m_connectedEmitted) {
        m_routing.set(destination, source);
        m_isGathering = true;
        return;
    }
    const bool isAwaited = !m_rereads.empty() && m_rereads.erase(destination) > 0;
    if (knownSource(destination) == source && !isAwaited)
        return;
    m_routing.set(destination, source);
    yield(driverEvent::RouteChanged{level, destination, source});
}

std::optional<qint64> InterrogatingParser::knownSource(qint64 destination) const
{
    const auto* const known = m_routing.find(destination);
    return known ? *known : std::nullopt;
}

void InterrogatingParser::reread(qint64 destination)
{
    interrogate(destination);
    // The first picture tells of all that is in it.
    if (!m_connectedEmitted || !isBelow(destination, m_destinationCount))
        return;
    m_rereads.insert(destination);
    m_rereadsEnd.restart();
}

void InterrogatingParser::endRereads()
{
    for (const auto destination : std::exchange(m_rereads, {}))
        yield(driverEvent::RouteChanged{0, destination, knownSource(destination)});
}

void InterrogatingParser::warnOfSize()
{
    if (std::exchange(m_rangeWarned, true))
        return;
    refuse(u"The device reports ports beyond the configured %1 — increase the matrix size in this router's "
           "settings."_s.arg(sizeText()));
}

void InterrogatingParser::checkSpeech()
{
    if (m_reportReceived)
        return;
    yield(driverEvent::Error{
        u"The device answered TCP but spoke no %1 — check the port and matrix size."_s.arg(m_protocol.name)});
}

void InterrogatingParser::takePicture()
{
    m_connectedEmitted = true;
    yield(driverEvent::Connected{completeState()});
    pictureTaken();
}

QString InterrogatingParser::sizeText() const
{
    return u"%1×%2"_s.arg(m_sourceCount).arg(m_destinationCount);
}

RouterState InterrogatingParser::completeState() const
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
    m_routing.forEach([&](qint64 destination, std::optional<qint64> source) {
        if (source)
            routing.insert(destination, *source);
    });
    state.routing.insert(0, routing);
    return state;
}

} // namespace corvane
