#include "Drivers/Tcp/TcpDriver.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Turns the connection's states into events. The watchdog guards the time until the link is up or given up.
class StateReporter {
public:
    StateReporter(WorkItem watchdog, RouterEventStream events, std::shared_ptr<ProtocolParser> parser,
        QString readyText)
        : m_watchdog(std::move(watchdog)),
          m_events(std::move(events)),
          m_parser(std::move(parser)),
          m_readyText(std::move(readyText))
    {
    }

    void operator()(const TcpConnection::State& state) { std::visit(*this, state); }

    void operator()(const TcpConnection::Setup&) { }

    void operator()(const TcpConnection::Waiting& waiting)
    {
        m_events.yield(driverEvent::Status{u"Waiting for router… (%1)"_s.arg(waiting.error)});
    }

    void operator()(const TcpConnection::Ready&)
    {
        m_watchdog.cancel();
        m_events.yield(driverEvent::Status{m_readyText});
        m_parser->begin();
    }

    void operator()(const TcpConnection::Failed& failed)
    {
        over();
        m_events.yield(driverEvent::Error{u"Connection failed: %1"_s.arg(failed.error)});
    }

    void operator()(const TcpConnection::Cancelled&)
    {
        over();
        m_events.yield(driverEvent::Disconnected{});
    }

private:
    void over()
    {
        m_watchdog.cancel();
        m_parser->end();
    }

    WorkItem m_watchdog;
    RouterEventStream m_events;
    std::shared_ptr<ProtocolParser> m_parser;
    QString m_readyText;
};

/// Hands what comes in to the parser until the stream ends or the connection is cancelled.
///
/// While a delivery is awaited, this keeps the connection and the connection keeps this; `cancel` unties
/// them.
struct ReceiveLoop {
    std::shared_ptr<TcpConnection> connection;
    std::shared_ptr<ProtocolParser> parser;
    RouterEventStream events;

    void operator()(const TcpConnection::Delivery& delivery) const
    {
        if (!delivery.bytes.isEmpty())
            parser->ingest({delivery.bytes.constData(), static_cast<std::size_t>(delivery.bytes.size())});
        if (delivery.isComplete)
            end(driverEvent::Disconnected{u"The router closed the connection."_s});
        else if (delivery.error)
            end(driverEvent::Error{u"Receive failed: %1"_s.arg(*delivery.error)});
        else
            receiveMore();
    }

    /// A controller that can't keep up with the router slows it down, instead of filling our memory.
    void receiveMore() const
    {
        if (events.callWhenShrunk([weak = std::weak_ptr(connection)] {
                if (const auto paused = weak.lock())
                    paused->resumeReading();
            }))
            connection->pauseReading();
        connection->receive(TcpDriver::deliverySize, *this);
    }

    void end(RouterDriverEvent reason) const
    {
        connection->cancel();
        parser->end();
        events.yield(std::move(reason));
    }
};

WorkItem startWatchdog(
    SerialQueue& queue, const std::shared_ptr<TcpConnection>& connection, const RouterEventStream& events)
{
    return queue.after(TcpDriver::connectTimeout, [weak = std::weak_ptr(connection), events] {
        const auto waiting = weak.lock();
        if (!waiting || waiting->isReady())
            return;
        waiting->cancel();
        events.yield(driverEvent::Error{u"The router didn't answer within 12 seconds."_s});
    });
}

} // namespace

TcpDriver::TcpDriver(RouterConnection connection, SerialQueue& queue, ServiceResolver resolver)
    : m_connectionInfo(std::move(connection)), m_queue(queue), m_resolver(std::move(resolver))
{
}

TcpDriver::~TcpDriver()
{
    if (m_connection)
        m_connection->cancel();
}

QCoro::Task<> TcpDriver::connect()
{
    // One that was abandoned before this task had its turn: nothing would ever untie the link again.
    if (events().isFinished())
        co_return;
    if (auto target = endpoint()) {
        yield(driverEvent::Status{connectingText(*target)});
        open(*std::move(target));
    } else {
        yield(driverEvent::Error{noAddressText()});
    }
    co_return;
}

QCoro::Task<> TcpDriver::disconnect()
{
    // Before the link ends, for its end is nobody's news.
    events().finish();
    if (m_connection)
        std::exchange(m_connection, nullptr)->cancel();
    co_return;
}

QString TcpDriver::noAddressText() const
{
    return u"No address for this router. Edit it and set a host."_s;
}

std::optional<Endpoint> TcpDriver::endpoint() const
{
    if (m_connectionInfo.host.isEmpty())
        return service();
    constexpr qint64 highestPort = std::numeric_limits<quint16>::max();
    const auto port = std::clamp<qint64>(m_connectionInfo.port, 0, highestPort);
    return HostEndpoint{m_connectionInfo.host, static_cast<quint16>(port)};
}

QString TcpDriver::connectingText(const Endpoint& endpoint) const
{
    if (const auto* const service = std::get_if<ServiceEndpoint>(&endpoint))
        return u"Connecting to %1 via Bonjour…"_s.arg(service->name);
    // The port as the operator typed it, even where another one had to be taken.
    return u"Connecting to %1:%2…"_s.arg(m_connectionInfo.host, QString::number(m_connectionInfo.port));
}

void TcpDriver::open(Endpoint endpoint)
{
    m_connection = TcpConnection::make(std::move(endpoint), m_queue, m_resolver);
    parser()->onSend([weak = std::weak_ptr(m_connection)](const QByteArray& bytes) {
        // Nobody is told if it fails: what the parser asks for then stays unanswered.
        if (const auto link = weak.lock())
            link->send(bytes, [](const auto&) {});
    });
    const auto watchdog = startWatchdog(m_queue, m_connection, events());
    m_connection->setStateHandler(StateReporter(watchdog, events(), parser(), readyText()));
    m_connection->receive(deliverySize, ReceiveLoop{m_connection, parser(), events()});
    m_connection->start();
}

void TcpDriver::requireReady() const
{
    if (!m_connection || !m_connection->isReady())
        throw DriverError::notConnected();
}

void TcpDriver::sendCommand(const QByteArray& bytes, std::function<void()> recover) const
{
    requireReady();
    writeToLink(bytes, std::move(recover));
}

void TcpDriver::writeToLink(const QByteArray& bytes, std::function<void()> recover) const
{
    m_connection->send(bytes, [events = events(), recover = std::move(recover)](const auto& error) {
        if (!error)
            return;
        events.yield(driverEvent::CommandRefused{u"Couldn't send the command: %1"_s.arg(*error)});
        recover();
    });
}

} // namespace corvane
