#pragma once

#include "Drivers/Contract/RouterDriver.h"
#include "Foundation/SerialQueue.h"

#include <stop_token>

namespace corvane {

/// How many ports stand for the asked number: at least one, and no more than memory holds, whatever a file
/// says.
qint64 simulatedSide(qint64 asked);

/// What a simulated router of this connection's size starts with.
RouterState simulatedState(const RouterConnection& connection);

/// A router in memory, for when no hardware is at hand, and the reference for what a driver owes its
/// controller.
///
/// What was routed, locked or renamed lives and dies with the instance. Confined to the main thread.
class SimulatorDriver final : public RouterDriver {
public:
    /// `mainQueue` must outlive the driver.
    SimulatorDriver(const RouterConnection& connection, SerialQueue& mainQueue);

    QCoro::Task<> connect() override;
    /// Also ends the waits of whatever is under way.
    QCoro::Task<> disconnect() override;
    QCoro::Task<> take(qint64 source, qint64 destination, qint64 level) override;
    /// Routes to locked destinations are skipped without a word. Indices are not checked: any can be routed.
    QCoro::Task<> takeAll(QList<Route> routes) override;
    QCoro::Task<> setLock(qint64 destination, qint64 level, bool locked) override;
    /// An index that no port has is ignored.
    QCoro::Task<> setLabel(QString label, qint64 index, PortKind kind) override;

private:
    void requireConnection() const;

    SerialQueue& m_mainQueue;
    RouterState m_state;
    bool m_isConnected = false;
    std::stop_source m_end;
};

} // namespace corvane
