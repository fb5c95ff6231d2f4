#include "Foundation/TcpConnection.h"

#include "Foundation/PeerWatch.h"

#include <QNetworkProxy>
#include <QPointer>
#include <QTcpSocket>

#include <cerrno>
#include <mutex>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr auto retryDelay = std::chrono::seconds(1);

// A full gigabit link fills this in half a millisecond; what does not fit waits in the kernel and slows the
// peer down.
constexpr qsizetype readBufferSize = 65536;

// Many times what the largest router is asked at once. A peer that does not read while it makes us answer
// must not fill our memory.
constexpr qint64 mostUnsent = qint64{16} << 20;

bool canNeverWork(QAbstractSocket::SocketError error)
{
    switch (error) {
    case QAbstractSocket::UnsupportedSocketOperationError:
    case QAbstractSocket::SocketAccessError:
    case QAbstractSocket::SocketResourceError:
        return true;
    default:
        return false;
    }
}

} // namespace

/// The part that lives on the queue: the socket and all that happens to it. Only `state` is shared with other
/// threads.
class TcpConnection::Link : public std::enable_shared_from_this<Link> {
public:
    Link(Endpoint endpoint, SerialQueue& queue, ServiceResolver resolver)
        : m_endpoint(std::move(endpoint)), m_queue(queue), m_resolver(std::move(resolver))
    {
    }

    void setStateHandler(StateHandler handler) { m_stateHandler = std::move(handler); }

    State state() const
    {
        const std::lock_guard lock(m_mutex);
        return m_state;
    }

    void attempt()
    {
        if (isOver())
            return;
        if (const auto* const host = std::get_if<HostEndpoint>(&m_endpoint)) {
            open(*host);
            return;
        }
        m_resolution =
            m_resolver(std::get<ServiceEndpoint>(m_endpoint), [weak = weak_from_this()](auto result) {
                if (const auto self = weak.lock())
                    self->resolved(std::move(result));
            });
    }

    void receive(qsizetype maximumLength, ReceiveHandler handler)
    {
        m_maximumLength = maximumLength;
        m_receiver = std::move(handler);
        deliver();
    }

    void setReading(bool isReading)
    {
        m_isReading = isReading;
        deliver();
    }

    void send(const QByteArray& bytes, const SendCompletion& completion)
    {
        if (!std::holds_alternative<Ready>(state()) || !m_socket) {
            completion(u"The connection is not open"_s);
            return;
        }
        if (m_socket->bytesToWrite() > mostUnsent) {
            completion(u"The other side does not read what it is sent"_s);
            return;
        }
        if (m_socket->write(bytes) != bytes.size()) {
            completion(m_socket->errorString());
            return;
        }
        m_socket->flush();
        completion(std::nullopt);
    }

    void cancel()
    {
        if (std::holds_alternative<Cancelled>(state()))
            return;
        closeSocket();
        m_resolution.reset();
        m_retry.cancel();
        m_receiver = nullptr;
        enter(Cancelled{});
    }

    /// The end of all use: called on the queue when the connection object is gone.
    void dispose()
    {
        m_stateHandler = nullptr;
        cancel();
    }

private:
    bool isOver() const
    {
        const auto current = state();
        return std::holds_alternative<Cancelled>(current) || std::holds_alternative<Failed>(current);
    }

    void enter(const State& next)
    {
        {
            const std::lock_guard lock(m_mutex);
            if (m_state == next)
                return;
            m_state = next;
        }
        if (m_stateHandler)
            m_stateHandler(next);
    }

    void resolved(ServiceResolution result)
    {
        m_resolution.reset();
        if (const auto* const host = std::get_if<HostEndpoint>(&result))
            open(*host);
        else
            waitAndRetry(std::get<QString>(result));
    }

    void open(const HostEndpoint& host)
    {
        m_socket = std::make_unique<QTcpSocket>();
        // A router stands on the local network: a proxy meant for the web has no business here.
        m_socket->setProxy(QNetworkProxy::NoProxy);
        m_socket->setReadBufferSize(readBufferSize);
        // Signals of a socket that has been replaced or closed meanwhile come to nobody: it is disconnected
        // first.
        QObject::connect(m_socket.get(), &QTcpSocket::connected, m_socket.get(), [this] { connected(); });
        QObject::connect(m_socket.get(), &QTcpSocket::readyRead, m_socket.get(), [this] { deliver(); });
        QObject::connect(m_socket.get(), &QTcpSocket::errorOccurred, m_socket.get(),
            [this](auto error) { failed(error); });
        m_socket->connectToHost(host.host, host.port);
    }

    void connected()
    {
        // A take is a handful of bytes that must leave at once, not wait for company.
        m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        m_watch.emplace(m_socket->socketDescriptor());
        enter(Ready{});
        deliver();
    }

    void failed(QAbstractSocket::SocketError error)
    {
        if (!std::holds_alternative<Ready>(state())) {
            const auto message = m_socket->errorString();
            if (canNeverWork(error)) {
                closeSocket();
                enter(Failed{message});
            } else {
                waitAndRetry(message);
            }
            return;
        }
        if (m_end)
            return;
        // The socket takes a reset for an orderly close.
        const bool isClosed = error == QAbstractSocket::RemoteHostClosedError;
        const bool wasReset = isClosed && m_watch && m_watch->wasReset();
        m_watch.reset();
        auto message = wasReset ? qt_error_string(ECONNRESET) : m_socket->errorString();
        m_end = isClosed && !wasReset ? Delivery{{}, true, std::nullopt}
                                      : Delivery{{}, false, std::move(message)};
        deliver();
    }

    void waitAndRetry(const QString& message)
    {
        closeSocket();
        m_retry = m_queue.after(retryDelay, [weak = weak_from_this()] {
            if (const auto self = weak.lock())
                self->attempt();
        });
        enter(Waiting{message});
    }

    /// Serves a pending `receive` from what the socket has, and tells of the end only once all bytes are out.
    void deliver()
    {
        if (!m_receiver || !m_isReading || !m_socket || !std::holds_alternative<Ready>(state()))
            return;
        Delivery delivery;
        if (m_socket->bytesAvailable() > 0)
            delivery.bytes = m_socket->read(m_maximumLength);
        if (m_end && m_socket->bytesAvailable() == 0) {
            delivery.isComplete = m_end->isComplete;
            delivery.error = m_end->error;
        } else if (delivery.bytes.isEmpty()) {
            return;
        }
        const auto receiver = std::exchange(m_receiver, nullptr);
        receiver(std::move(delivery));
    }

    void closeSocket()
    {
        if (!m_socket)
            return;
        m_watch.reset();
        m_socket->disconnect();
        m_socket->abort();
        // We may be inside one of its signals.
        m_socket.release()->deleteLater();
    }

    const Endpoint m_endpoint;
    SerialQueue& m_queue;
    const ServiceResolver m_resolver;
    StateHandler m_stateHandler;
    ReceiveHandler m_receiver;
    qsizetype m_maximumLength = 0;
    bool m_isReading = true;
    std::unique_ptr<QTcpSocket> m_socket;
    std::optional<PeerWatch> m_watch;
    std::optional<Delivery> m_end;
    std::shared_ptr<void> m_resolution;
    WorkItem m_retry;
    mutable std::mutex m_mutex;
    State m_state;
};

std::shared_ptr<TcpConnection> TcpConnection::make(
    Endpoint endpoint, SerialQueue& queue, ServiceResolver resolver)
{
    return std::shared_ptr<TcpConnection>(new TcpConnection(std::move(endpoint), queue, std::move(resolver)));
}

TcpConnection::TcpConnection(Endpoint endpoint, SerialQueue& queue, ServiceResolver resolver)
    : m_queue(queue), m_link(std::make_shared<Link>(std::move(endpoint), queue, std::move(resolver)))
{
}

TcpConnection::~TcpConnection()
{
    m_queue.async([link = m_link] { link->dispose(); });
}

void TcpConnection::setStateHandler(StateHandler handler)
{
    m_link->setStateHandler(std::move(handler));
}

void TcpConnection::start()
{
    m_queue.async([link = m_link] { link->attempt(); });
}

void TcpConnection::receive(qsizetype maximumLength, ReceiveHandler handler)
{
    m_link->receive(maximumLength, std::move(handler));
}

void TcpConnection::pauseReading()
{
    Q_ASSERT(m_queue.isCurrent());
    m_link->setReading(false);
}

void TcpConnection::resumeReading()
{
    m_queue.async([link = m_link] { link->setReading(true); });
}

void TcpConnection::send(QByteArray bytes, SendCompletion completion)
{
    m_queue.async([link = m_link, bytes = std::move(bytes), completion = std::move(completion)] {
        link->send(bytes, completion);
    });
}

void TcpConnection::cancel()
{
    m_queue.async([link = m_link] { link->cancel(); });
}

TcpConnection::State TcpConnection::state() const
{
    return m_link->state();
}

} // namespace corvane
