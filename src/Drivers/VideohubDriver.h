#pragma once

#include "Drivers/TcpDriver.h"
#include "Drivers/VideohubParser.h"
#include "Foundation/BonjourResolver.h"

namespace corvane {

/// Controls a Blackmagic Videohub, found by host or by its Bonjour service. It has one level, so the level of
/// a command is not looked at. Locks work once the device has shown that it has some.
class VideohubDriver final : public TcpDriver {
public:
    explicit VideohubDriver(const RouterConnection& connection, SerialQueue& queue = classQueue(),
        ServiceResolver resolver = resolveBonjourService);

    QCoro::Task<> take(qint64 source, qint64 destination, qint64 level) override;

    /// All in one block: the router makes them together.
    QCoro::Task<> takeAll(QList<Route> routes) override;

    QCoro::Task<> setLock(qint64 destination, qint64 level, bool locked) override;

    /// The label goes out as it comes: a line break in it ends the line.
    QCoro::Task<> setLabel(QString label, qint64 index, PortKind kind) override;

protected:
    [[nodiscard]] std::shared_ptr<ProtocolParser> parser() const override { return m_parser; }
    void attachParser(const std::weak_ptr<TcpConnection>& connection) override;
    [[nodiscard]] QString readyText() const override;
    [[nodiscard]] std::optional<ServiceEndpoint> service() const override;
    [[nodiscard]] QString noAddressText() const override;

private:
    /// Shared by all connections of this class; made on first use.
    static SerialQueue& classQueue();

    void send(const QByteArray& block) const;

    const std::shared_ptr<VideohubParser> m_parser;
};

} // namespace corvane
