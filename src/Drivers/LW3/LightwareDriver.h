#pragma once

#include "Drivers/LW3/LW3Parser.h"
#include "Drivers/Tcp/TcpDriver.h"

#include <QByteArrayList>

namespace corvane {

/// Controls a Lightware matrix by its LW3 protocol. It has one level, so the level of a command is not looked
/// at. The only driver that reports what its inputs receive.
class LightwareDriver final : public TcpDriver {
public:
    LightwareDriver(const RouterConnection& connection, SerialQueue& queue);

    QCoro::Task<> take(qint64 source, qint64 destination, qint64 level) override;

    /// A command for each route, which the device answers one by one; they go out together.
    QCoro::Task<> takeAll(QList<Route> routes) override;

    QCoro::Task<> setLock(qint64 destination, qint64 level, bool locked) override;

    /// What would end the name on the wire is replaced: a semicolon by a comma, a line break or control
    /// character by a blank. Other marks of the protocol are escaped.
    QCoro::Task<> setLabel(QString label, qint64 index, PortKind kind) override;

protected:
    [[nodiscard]] std::shared_ptr<ProtocolParser> parser() const override { return m_parser; }
    [[nodiscard]] QString readyText() const override;

private:
    /// Gives each command a signature of its own and sends them together.
    void sendSigned(const QByteArrayList& commands, LW3Parser::Command kind) const;

    const std::shared_ptr<LW3Parser> m_parser;
};

} // namespace corvane
