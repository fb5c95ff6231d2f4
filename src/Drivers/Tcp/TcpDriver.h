#pragma once

#include "Drivers/Contract/RouterDriver.h"
#include "Drivers/Tcp/ProtocolParser.h"
#include "Foundation/TcpConnection.h"

#include <functional>
#include <memory>
#include <optional>

namespace corvane {

/// A driver over one plain TCP connection: what does not depend on the protocol.
///
/// Commands run on the main thread. The connection, the parser and its timers run on the queue, which all the
/// connections of a driver class share; a command reaches parser state by a synchronous hop onto it.
///
/// A protocol adds its parser, its texts and what to do after a send that failed.
class TcpDriver : public RouterDriver {
public:
    /// How long the connection may take. A device that accepts it and then says nothing is not caught by
    /// this.
    static constexpr Duration connectTimeout = std::chrono::seconds(12);

    /// The most that one delivery hands to the parser, in bytes.
    static constexpr qsizetype deliverySize = 65536;

    /// Ends a connection that nobody has ended.
    ~TcpDriver() override;

    QCoro::Task<> connect() override;
    QCoro::Task<> disconnect() override;

protected:
    /// `queue` must outlive the driver and all that it has started there. `resolver` serves drivers that have
    /// a `service`.
    TcpDriver(RouterConnection connection, SerialQueue& queue, ServiceResolver resolver = {});

    [[nodiscard]] virtual std::shared_ptr<ProtocolParser> parser() const = 0;

    /// What the operator reads once the link is up, while the parser gathers the device's state.
    [[nodiscard]] virtual QString readyText() const = 0;

    /// Where to connect when no host is saved, for protocols that are found by Bonjour.
    [[nodiscard]] virtual std::optional<ServiceEndpoint> service() const { return std::nullopt; }

    /// What the operator reads when there is nowhere to connect to.
    [[nodiscard]] virtual QString noAddressText() const;

    [[nodiscard]] const RouterConnection& connectionInfo() const { return m_connectionInfo; }
    [[nodiscard]] SerialQueue& queue() const { return m_queue; }

    /// Throws `notConnected` unless commands can be sent. For commands that tell the parser before they send.
    void requireReady() const;

    /// Sends a command, or throws `notConnected`. If the system does not take the bytes, the operator is told
    /// and `recover` runs on the queue.
    void sendCommand(const QByteArray& bytes, std::function<void()> recover) const;

    /// The same after `requireReady`; also in a hop onto the queue, where nothing that a parser says can come
    /// between what the hop does and the writing.
    void writeToLink(const QByteArray& bytes, std::function<void()> recover) const;

private:
    [[nodiscard]] std::optional<Endpoint> endpoint() const;
    [[nodiscard]] QString connectingText(const Endpoint& endpoint) const;
    void open(Endpoint endpoint);

    const RouterConnection m_connectionInfo;
    SerialQueue& m_queue;
    const ServiceResolver m_resolver;
    std::shared_ptr<TcpConnection> m_connection;
};

} // namespace corvane
