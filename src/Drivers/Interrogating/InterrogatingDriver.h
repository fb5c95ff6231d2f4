#pragma once

#include "Drivers/Interrogating/InterrogatingParser.h"
#include "Drivers/Tcp/TcpDriver.h"

#include <type_traits>

namespace corvane {

/// Controls a router that has to be asked for each of its crosspoints, and that has here neither locks nor
/// names. A protocol adds its parser and its queue.
class InterrogatingDriver : public TcpDriver {
public:
    QCoro::Task<> take(qint64 source, qint64 destination, qint64 level) override;

    /// One command a route, in order. The first that can't be sent ends it: what was routed before stays
    /// routed.
    QCoro::Task<> takeAll(QList<Route> routes) override;

    QCoro::Task<> setLock(qint64 destination, qint64 level, bool locked) override;
    QCoro::Task<> setLabel(QString label, qint64 index, PortKind kind) override;

protected:
    template <typename Parser>
    InterrogatingDriver(
        std::type_identity<Parser> /*parser*/, const RouterConnection& connection, SerialQueue& queue)
        : TcpDriver(connection, queue), m_parser(makeParser<Parser>(queue, connection, queue, events()))
    {
    }

    [[nodiscard]] std::shared_ptr<ProtocolParser> parser() const override { return m_parser; }
    [[nodiscard]] QString readyText() const override;

private:
    const std::shared_ptr<InterrogatingParser> m_parser;
};

} // namespace corvane
