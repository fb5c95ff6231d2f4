#include "Drivers/Kumo/KumoDriver.h"

#include "Drivers/Kumo/KumoParser.h"
#include "Drivers/Tcp/Ports.h"
#include "Foundation/Task.h"
#include "Foundation/Text.h"

#include <algorithm>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

constexpr Duration pollInterval = 2s;
// A reply is a line of some hundred bytes.
constexpr HttpClient::Limits limits{.time = 8s, .bodySize = 262'144};
// Many times the largest KUMO. A garbled size must not keep us reading for days.
constexpr qint64 largestSide = 4096;
constexpr qint64 onlyLevel = 0;

} // namespace

KumoDriver::KumoDriver(RouterConnection connection, SerialQueue& mainQueue)
    : m_connection(std::move(connection)), m_mainQueue(mainQueue), m_client(mainQueue, limits)
{
}

KumoDriver::~KumoDriver()
{
    m_pollStop.request_stop();
    m_client.invalidate();
}

QCoro::Task<> KumoDriver::connect()
{
    if (m_connection.host.isEmpty()) {
        yield(driverEvent::Error{u"No address for this router. Edit it and set a host."_s});
        co_return;
    }
    yield(driverEvent::Status{u"Contacting KUMO at %1…"_s.arg(m_connection.host)});
    if (co_await readSize() == Reading::abandoned)
        co_return;
    yield(driverEvent::Status{u"Reading routing and labels…"_s});
    tellReadingProgress(0);
    auto sources = co_await readPorts(PortKind::source, m_sourceCount);
    auto destinations = co_await readPorts(PortKind::destination, m_destinationCount);
    co_await readRouting();
    if (m_isTorn)
        co_return;
    tellReadingProgress(std::nullopt);
    m_isConnected = true;
    yield(driverEvent::Connected{makeState(std::move(sources), std::move(destinations))});
    startPolling();
}

QCoro::Task<> KumoDriver::disconnect()
{
    m_isTorn = true;
    m_isConnected = false;
    m_pollStop.request_stop();
    m_client.invalidate();
    events().finish();
    co_return;
}

void KumoDriver::abandon()
{
    disconnect();
    m_client.abort();
}

QCoro::Task<> KumoDriver::take(qint64 source, qint64 destination, qint64)
{
    requireConnection();
    // Before any request, so that a polled value under way is already known to be stale.
    ++m_takeEpoch;
    co_await get(KumoParser::setRoutePath(source, destination));
    const auto number = co_await readStatus(destination);
    if (!number)
        co_return;
    // What the device says it did is the truth, even "nothing".
    const auto actual = zeroBased(*number);
    // What was polled meanwhile may be older, and come later.
    ++m_takeEpoch;
    setRoute(destination, actual);
    if (actual != source)
        yield(driverEvent::CommandRefused{
            u"KUMO kept Out %1 on In %2."_s.arg(oneBased(destination)).arg(*number)});
}

QCoro::Task<> KumoDriver::setLock(qint64, qint64, bool)
{
    throw DriverError::unsupported(feature::locking);
    co_return;
}

QCoro::Task<> KumoDriver::setLabel(QString label, qint64 index, PortKind kind)
{
    requireConnection();
    label = text::onOneLine(std::move(label));
    co_await get(KumoParser::setLabelPath(KumoParser::labelParameter(kind, index), label));
    yield(driverEvent::LabelChanged{kind, index, label});
}

QCoro::Task<QByteArray> KumoDriver::get(QString path)
{
    const QUrl url(KumoParser::baseURL(m_connection.host, m_connection.port) + path, QUrl::StrictMode);
    if (!url.isValid())
        throw DriverError::protocolError(u"Bad URL for %1"_s.arg(path));
    const auto reply = co_await m_client.get(url);
    if (reply.status != 200)
        throw DriverError::transport(u"HTTP %1"_s.arg(reply.status));
    co_return reply.body;
}

QCoro::Task<qint64> KumoDriver::intParam(QString parameter)
{
    const auto value = KumoParser::parameterValue(co_await get(KumoParser::readPath(parameter)));
    const auto number = value ? KumoParser::integer(*value) : std::nullopt;
    if (!number)
        throw DriverError::protocolError(u"%1 returned no number"_s.arg(parameter));
    co_return *number;
}

QCoro::Task<QString> KumoDriver::readLabel(PortKind kind, qint64 index)
{
    // A name that can't be read is no reason to do without the router.
    const auto unnamed = numberedLabel(kind, index);
    try {
        const auto path = KumoParser::readPath(KumoParser::labelParameter(kind, index));
        const auto value = KumoParser::parameterValue(co_await get(path));
        co_return value ? KumoParser::label(*value).value_or(unnamed) : unnamed;
    } catch (const std::exception&) {
        co_return unnamed;
    }
}

QCoro::Task<std::optional<qint64>> KumoDriver::readStatus(qint64 destination)
{
    try {
        co_return co_await intParam(KumoParser::statusParameter(destination));
    } catch (const std::exception&) {
        co_return std::nullopt;
    }
}

QCoro::Task<KumoDriver::Reading> KumoDriver::readSize()
{
    try {
        m_sourceCount = co_await intParam(KumoParser::sourceCountParameter());
        if (m_isTorn)
            co_return Reading::abandoned;
        m_destinationCount = co_await intParam(KumoParser::destinationCountParameter());
    } catch (const std::exception& failure) {
        yield(driverEvent::Error{u"KUMO didn't answer: %1"_s.arg(QString::fromUtf8(failure.what()))});
        co_return Reading::abandoned;
    }
    if (m_isTorn)
        co_return Reading::abandoned;
    if (m_sourceCount < 1 || m_destinationCount < 1) {
        yield(driverEvent::Error{u"KUMO reported a zero-sized matrix."_s});
        co_return Reading::abandoned;
    }
    m_sourceCount = std::min(m_sourceCount, largestSide);
    m_destinationCount = std::min(m_destinationCount, largestSide);
    co_return Reading::complete;
}

QCoro::Task<QList<Port>> KumoDriver::readPorts(PortKind kind, qint64 count)
{
    QList<Port> ports;
    ports.reserve(count);
    for (qint64 index = 0; index < count; ++index) {
        const auto label = co_await readLabel(kind, index);
        ports.append(Port{index, kind, label});
        countValueRead();
    }
    co_return ports;
}

QCoro::Task<> KumoDriver::readRouting()
{
    for (qint64 destination = 0; destination < m_destinationCount; ++destination) {
        const auto number = co_await readStatus(destination);
        if (number && *number > 0)
            m_routing.insert(destination, zeroBased(*number));
        countValueRead();
    }
}

RouterState KumoDriver::makeState(QList<Port> sources, QList<Port> destinations) const
{
    RouterState state;
    state.deviceName = m_connection.name;
    state.model = u"KUMO %1×%2"_s.arg(m_sourceCount).arg(m_destinationCount);
    state.vendor = RouterVendor::ajaKumo;
    state.sources = std::move(sources);
    state.destinations = std::move(destinations);
    state.levels = onlyVideoLevel();
    state.routing.insert(onlyLevel, m_routing);
    return state;
}

void KumoDriver::countValueRead()
{
    if (m_isTorn)
        return;
    const auto valueCount = m_sourceCount + (2 * m_destinationCount);
    tellReadingProgress(static_cast<double>(++m_valuesRead) / static_cast<double>(valueCount));
}

void KumoDriver::startPolling()
{
    m_pollStop.request_stop();
    m_pollStop = {};
    startTask(
        m_mainQueue, [weakDriver = weak_from_this(), &queue = m_mainQueue, stop = m_pollStop.get_token()] {
            return poll(weakDriver, queue, stop);
        });
}

QCoro::Task<> KumoDriver::poll(std::weak_ptr<KumoDriver> weakDriver, SerialQueue& queue, std::stop_token stop)
{
    while (!stop.stop_requested()) {
        co_await sleepFor(queue, pollInterval, stop);
        const auto driver = weakDriver.lock();
        if (!driver || !driver->m_isConnected || stop.stop_requested())
            co_return;
        co_await driver->pollRouting();
    }
}

QCoro::Task<> KumoDriver::pollRouting()
{
    for (qint64 destination = 0; destination < m_destinationCount && m_isConnected; ++destination) {
        const auto epoch = m_takeEpoch;
        const auto number = co_await readStatus(destination);
        if (!number || *number <= 0)
            continue;
        if (m_takeEpoch != epoch)
            co_return;
        const auto source = zeroBased(*number);
        const auto known = m_routing.constFind(destination);
        if (known == m_routing.cend() || *known != source)
            setRoute(destination, source);
    }
}

void KumoDriver::setRoute(qint64 destination, qint64 source)
{
    m_routing.insert(destination, source);
    yield(driverEvent::RouteChanged{onlyLevel, destination, source});
}

void KumoDriver::requireConnection() const
{
    if (!m_isConnected)
        throw DriverError::notConnected();
}

} // namespace corvane
