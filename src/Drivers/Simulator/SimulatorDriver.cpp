#include "Drivers/Simulator/SimulatorDriver.h"

#include "Foundation/Task.h"
#include "Foundation/Text.h"

#include <algorithm>
#include <array>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

// About what real devices take, so that the screens show their in-between states.
constexpr auto startTime = 300ms;
constexpr auto routingTime = 120ms;

constexpr std::array sourceStems{"CAM", "VTR", "GFX", "SRV", "EVS", "RMT", "SAT", "FEED"};
constexpr std::array destinationStems{"MON", "MV", "REC", "AUX", "PGM", "PVW", "STR", "OUT"};
constexpr std::array formats{"1920x1080p59.94", "1920x1080i59.94", "3840x2160p29.97", "1280x720p59.94"};

template <std::size_t size>
const char* cycled(const std::array<const char*, size>& texts, qint64 position)
{
    return texts.at(static_cast<std::size_t>(position) % size);
}

template <std::size_t size>
QList<Port> makePorts(PortKind kind, qint64 count, const std::array<const char*, size>& stems)
{
    QList<Port> ports;
    ports.reserve(count);
    for (qint64 i = 0; i < count; ++i) {
        const auto round = (i / static_cast<qint64>(size)) + 1;
        const auto stem = QString::fromLatin1(cycled(stems, i));
        ports.append({i, kind, u"%1 %2"_s.arg(stem, QString::number(round))});
    }
    return ports;
}

/// Each level starts one source further on, so that they can be told apart.
LevelRouting makeRouting(qint64 level, qint64 sourceCount, qint64 destinationCount)
{
    LevelRouting routing;
    routing.reserve(destinationCount);
    for (qint64 destination = 0; destination < destinationCount; ++destination)
        routing.insert(destination, (destination + level) % sourceCount);
    return routing;
}

InputSignalStatus makeInputStatus(qint64 source)
{
    if (source % 5 == 4)
        return {false, std::nullopt};
    return {true, QString::fromLatin1(cycled(formats, source))};
}

} // namespace

qint64 simulatedSide(qint64 asked)
{
    constexpr qint64 largest = 1'000'000;
    return std::clamp<qint64>(asked, 1, largest);
}

RouterState simulatedState(const RouterConnection& connection)
{
    const auto sourceCount = simulatedSide(connection.simSourceCount);
    const auto destinationCount = simulatedSide(connection.simDestinationCount);
    RouterState state;
    state.deviceName = connection.name;
    state.model = u"Virtual %1×%2"_s.arg(sourceCount).arg(destinationCount);
    state.vendor = RouterVendor::simulator;
    state.sources = makePorts(PortKind::source, sourceCount, sourceStems);
    state.destinations = makePorts(PortKind::destination, destinationCount, destinationStems);
    state.levels = {{0, u"Video"_s, LevelKind::video}, {1, u"Audio 1"_s, LevelKind::audio},
        {2, u"Audio 2"_s, LevelKind::audio}};
    for (const auto& level : std::as_const(state.levels))
        state.routing.insert(level.index, makeRouting(level.index, sourceCount, destinationCount));
    for (qint64 source = 0; source < sourceCount; ++source)
        state.inputStatus.insert(source, makeInputStatus(source));
    return state;
}

SimulatorDriver::SimulatorDriver(const RouterConnection& connection, SerialQueue& mainQueue)
    : m_mainQueue(mainQueue), m_state(simulatedState(connection))
{
}

QCoro::Task<> SimulatorDriver::connect()
{
    yield(driverEvent::Status{u"Starting simulator…"_s});
    co_await sleepFor(m_mainQueue, startTime, m_end.get_token());
    if (m_end.stop_requested())
        co_return;
    m_isConnected = true;
    yield(driverEvent::Connected{m_state});
}

QCoro::Task<> SimulatorDriver::disconnect()
{
    m_isConnected = false;
    m_end.request_stop();
    yield(driverEvent::Disconnected{});
    events().finish();
    co_return;
}

QCoro::Task<> SimulatorDriver::take(qint64 source, qint64 destination, qint64 level)
{
    return takeAll({Route{level, destination, source}});
}

QCoro::Task<> SimulatorDriver::takeAll(QList<Route> routes)
{
    requireConnection();
    co_await sleepFor(m_mainQueue, routingTime, m_end.get_token());
    for (const auto& route : std::as_const(routes)) {
        if (m_state.isLocked(route.destination))
            continue;
        m_state.routing[route.level].insert(route.destination, route.source);
        yield(driverEvent::RouteChanged{route.level, route.destination, route.source});
    }
}

QCoro::Task<> SimulatorDriver::setLock(qint64 destination, qint64, bool locked)
{
    requireConnection();
    if (locked)
        m_state.lockedDestinations.insert(destination);
    else
        m_state.lockedDestinations.remove(destination);
    yield(driverEvent::LockChanged{destination, locked});
    co_return;
}

QCoro::Task<> SimulatorDriver::setLabel(QString label, qint64 index, PortKind kind)
{
    requireConnection();
    auto& ports = kind == PortKind::source ? m_state.sources : m_state.destinations;
    if (index < 0 || index >= ports.size())
        co_return;
    label = text::onOneLine(std::move(label));
    ports[index].label = label;
    yield(driverEvent::LabelChanged{kind, index, label});
}

void SimulatorDriver::requireConnection() const
{
    if (!m_isConnected)
        throw DriverError::notConnected();
}

} // namespace corvane
