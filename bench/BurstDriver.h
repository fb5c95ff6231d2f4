#pragma once

#include "Drivers/Contract/RouterDriver.h"

#include <QCoreApplication>

namespace corvane::bench {

using namespace Qt::StringLiterals;

/// A router that speaks when the bench says so, and takes every command.
class BurstDriver final : public RouterDriver {
public:
    explicit BurstDriver(RouterState state) : m_state(std::move(state)) { }

    QCoro::Task<> connect() override
    {
        yield(driverEvent::Connected{m_state});
        co_return;
    }
    QCoro::Task<> disconnect() override { co_return; }
    QCoro::Task<> take(qint64, qint64, qint64) override { co_return; }
    QCoro::Task<> setLock(qint64, qint64, bool) override { co_return; }
    QCoro::Task<> setLabel(QString, qint64, PortKind) override { co_return; }

    /// As a router would: each tally differs from the one before it, and all that one delivery of the network
    /// brought is handed on at once.
    void burstOfTallies(int count, int ports) const
    {
        constexpr std::size_t delivery = 1000;
        std::vector<RouterDriverEvent> heard;
        for (int i = 0; i < count; ++i) {
            heard.emplace_back(driverEvent::RouteChanged{0, i % ports, (i / ports) % ports});
            if (heard.size() == delivery)
                events().yield(std::move(heard));
        }
        events().yield(std::move(heard));
    }

    void tally(qint64 destination, qint64 source) const
    {
        yield(driverEvent::RouteChanged{0, destination, source});
    }

private:
    const RouterState m_state;
};

/// One level, as many sources as destinations, nothing routed.
inline RouterState largeState(qint64 ports)
{
    RouterState state;
    state.levels = {{0, u"Video"_s, LevelKind::video}};
    for (qint64 i = 0; i < ports; ++i) {
        state.sources.append({i, PortKind::source, u"Source %1"_s.arg(i)});
        state.destinations.append({i, PortKind::destination, u"Destination %1"_s.arg(i)});
    }
    return state;
}

void pumpUntil(const auto& condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace corvane::bench
