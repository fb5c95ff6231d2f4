#pragma once

#include "Foundation/SerialQueue.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <variant>

namespace corvane {

/// Where a TCP connection leads.
struct HostEndpoint {
    QString host;
    quint16 port = 0;
    bool operator==(const HostEndpoint&) const = default;
};

/// A Bonjour service instance; found anew at every attempt, for its address may change.
struct ServiceEndpoint {
    QString name;
    QString type;
    QString domain;
    bool operator==(const ServiceEndpoint&) const = default;
};

using Endpoint = std::variant<HostEndpoint, ServiceEndpoint>;

/// Finds the host and port of a service, or says why not. Called on the connection's queue; calls back there,
/// once, unless the returned handle is dropped first.
using ServiceResolution = std::variant<HostEndpoint, QString>;
using ServiceResolver =
    std::function<std::shared_ptr<void>(const ServiceEndpoint&, std::function<void(ServiceResolution)>)>;

/// An outgoing TCP connection that retries once a second until it connects or is cancelled.
///
/// A peer that refuses or can't be reached is not a failure: the connection is `waiting` meanwhile. Only what
/// can never work is `failed`. Once `ready` it never reconnects; an end of the stream or an error is given to
/// the pending `receive`. A reset by the peer is an error, and so is a peer that vanishes: that is noticed
/// within 15 seconds.
///
/// `start`, `resumeReading`, `send`, `cancel` and `state` may be called from any thread; callbacks run on the
/// queue. Made through `make`, for the callbacks hold it weakly.
class TcpConnection : public std::enable_shared_from_this<TcpConnection> {
public:
    struct Setup {
        bool operator==(const Setup&) const = default;
    };
    struct Waiting {
        QString error;
        bool operator==(const Waiting&) const = default;
    };
    struct Ready {
        bool operator==(const Ready&) const = default;
    };
    struct Failed {
        QString error;
        bool operator==(const Failed&) const = default;
    };
    struct Cancelled {
        bool operator==(const Cancelled&) const = default;
    };
    using State = std::variant<Setup, Waiting, Ready, Failed, Cancelled>;

    /// What one `receive` brought: any bytes come first, then the end or the error.
    struct Delivery {
        QByteArray bytes;
        bool isComplete = false;
        std::optional<QString> error;
    };

    using StateHandler = std::function<void(const State&)>;
    using ReceiveHandler = std::function<void(Delivery)>;
    using SendCompletion = std::function<void(const std::optional<QString>& error)>;

    /// `queue` must run on a thread with a Qt event loop and outlive the connection.
    static std::shared_ptr<TcpConnection> make(
        Endpoint endpoint, SerialQueue& queue, ServiceResolver resolver);
    ~TcpConnection();

    /// Set before `start`. Called on the queue at every change of state.
    void setStateHandler(StateHandler handler);

    void start();

    /// Asks for the next bytes, at least one and at most `maximumLength`. One call brings one delivery;
    /// asking is what lets more in, so a slow reader slows the peer down instead of filling our memory. Call
    /// before `start` or on the queue, and not while another one is pending.
    void receive(qsizetype maximumLength, ReceiveHandler handler);

    /// For a reader that can't keep up: nothing is delivered until `resumeReading`, not even the end, and
    /// the peer is slowed down. On the queue.
    void pauseReading();
    void resumeReading();

    /// Hands bytes to the system, in the order of the calls. The completion runs on the queue; its error says
    /// that they could not be handed over, which is also so while a peer has left megabytes unread. No error
    /// does not mean that the peer has them.
    void send(QByteArray bytes, SendCompletion completion);

    /// Ends the connection; the state handler then sees `Cancelled`. Safe to repeat.
    void cancel();

    [[nodiscard]] State state() const;
    [[nodiscard]] bool isReady() const { return std::holds_alternative<Ready>(state()); }

private:
    TcpConnection(Endpoint endpoint, SerialQueue& queue, ServiceResolver resolver);

    class Link;
    SerialQueue& m_queue;
    std::shared_ptr<Link> m_link;
};

} // namespace corvane
