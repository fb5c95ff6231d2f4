#pragma once

#include "Drivers/Tcp/TcpDriver.h"
#include "Drivers/Videohub/VideohubParser.h"
#include "Foundation/BonjourResolver.h"

#include <QByteArrayList>

namespace corvane {

/// Controls a Blackmagic Videohub, found by host or by its Bonjour service. It has one level, so the level of
/// a command is not looked at. Locks work once the device has shown that it has some.
class VideohubDriver final : public TcpDriver {
public:
    VideohubDriver(const RouterConnection& connection, SerialQueue& queue,
        ServiceResolver resolver = resolveBonjourService);

    QCoro::Task<> take(qint64 source, qint64 destination, qint64 level) override;

    /// All in one block: the router makes them together.
    QCoro::Task<> takeAll(QList<Route> routes) override;

    QCoro::Task<> setLock(qint64 destination, qint64 level, bool locked) override;

    /// A line break or control character, which would end the line, goes out as a blank.
    QCoro::Task<> setLabel(QString label, qint64 index, PortKind kind) override;

protected:
    [[nodiscard]] std::shared_ptr<ProtocolParser> parser() const override { return m_parser; }
    [[nodiscard]] QString readyText() const override;
    [[nodiscard]] std::optional<ServiceEndpoint> service() const override;
    [[nodiscard]] QString noAddressText() const override;

private:
    void sendBlock(const QByteArray& header, const QByteArrayList& lines) const;

    const std::shared_ptr<VideohubParser> m_parser;
};

} // namespace corvane
