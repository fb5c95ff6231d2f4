#pragma once

#include "Drivers/Contract/RouterDriver.h"
#include "Foundation/EventLoopQueue.h"

#include <QHash>
#include <QList>

#include <functional>
#include <memory>

namespace corvane {

/// Makes the driver that speaks a saved router's protocol. Nothing touches the network until `connect`.
using DriverMaker = std::function<std::shared_ptr<RouterDriver>(const RouterConnection&)>;

/// Makes drivers, and owns the threads that they run on: one for each family that speaks over TCP, shared by
/// its connections and started when its first driver is made.
///
/// The threads end with the factory. A driver that is held longer is abandoned by then, and may be released
/// at any time. Main thread only.
class DriverFactory {
public:
    /// `mainQueue` must outlive the factory and its drivers.
    explicit DriverFactory(SerialQueue& mainQueue);
    DriverFactory(const DriverFactory&) = delete;
    DriverFactory& operator=(const DriverFactory&) = delete;
    ~DriverFactory();

    [[nodiscard]] std::shared_ptr<RouterDriver> makeDriver(const RouterConnection& connection);

    /// Abandons every driver that is still held: from here on none of them reports anything.
    void abandonDrivers();

private:
    template <typename Driver>
    std::shared_ptr<RouterDriver> makeOnThread(const QString& label, const RouterConnection& connection);
    std::shared_ptr<RouterDriver> makeFor(const RouterConnection& connection);

    SerialQueue& m_mainQueue;
    QHash<QString, std::shared_ptr<ThreadQueue>> m_threads;
    QList<std::weak_ptr<RouterDriver>> m_drivers;
};

} // namespace corvane
