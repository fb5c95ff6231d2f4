#pragma once

#include "Drivers/LW3Parser.h"
#include "Drivers/TcpDriver.h"

#include <QByteArrayList>

namespace corvane {

/// Controls a Lightware matrix by its LW3 protocol. It has one level, so the level of a command is not looked
/// at. The only driver that reports what its inputs receive.
class LightwareDriver final : public TcpDriver {
public:
    explicit LightwareDriver(const RouterConnection& connection, SerialQueue& queue = classQueue());

    QCoro::Task<> take(qint64 source, qint64 destination, qint64 level) override;

    /// A command for each route, which the device answers one by one; they go out together.
    QCoro::Task<> takeAll(QList<Route> routes) override;

    QCoro::Task<> setLock(qint64 destination, qint64 level, bool locked) override;

    /// What would end the name on the wire is replaced: a semicolon by a comma, a line break by blanks.
    QCoro::Task<> setLabel(QString label, qint64 index, PortKind kind) override;

protected:
    [[nodiscard]] std::shared_ptr<ProtocolParser> parser() const override { return m_parser; }
    void attachParser(const std::weak_ptr<TcpConnection>& connection) override;
    [[nodiscard]] QString readyText() const override;

private:
    /// Shared by all connections of this class; made on first use.
    static SerialQueue& classQueue();

    void send(const QByteArrayList& commands, LW3Parser::Command kind) const;

    const std::shared_ptr<LW3Parser> m_parser;
};

} // namespace corvane
