#include "Drivers/DriverFactory.h"

#include "Drivers/Kumo/KumoDriver.h"
#include "Drivers/LW3/LightwareDriver.h"
#include "Drivers/Quartz/QuartzDriver.h"
#include "Drivers/SWP08/SWP08Driver.h"
#include "Drivers/Simulator/SimulatorDriver.h"
#include "Drivers/Videohub/VideohubDriver.h"

#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// A driver and the queue that it refers to, kept together: a driver that outlives the factory finds its
/// queue ended, but there.
template <typename Driver>
struct OnThread {
    OnThread(std::shared_ptr<ThreadQueue> thread, const RouterConnection& connection)
        : queue(std::move(thread)), driver(connection, *queue)
    {
    }

    std::shared_ptr<ThreadQueue> queue;
    Driver driver;
};

} // namespace

DriverFactory::DriverFactory(SerialQueue& mainQueue) : m_mainQueue(mainQueue) { }

DriverFactory::~DriverFactory()
{
    abandonDrivers();
    for (const auto& thread : std::as_const(m_threads))
        thread->end();
}

std::shared_ptr<RouterDriver> DriverFactory::makeDriver(const RouterConnection& connection)
{
    Q_ASSERT(m_mainQueue.isCurrent());
    m_drivers.removeIf([](const auto& driver) { return driver.expired(); });
    auto driver = makeFor(connection);
    m_drivers.append(driver);
    return driver;
}

void DriverFactory::abandonDrivers()
{
    Q_ASSERT(m_mainQueue.isCurrent());
    for (const auto& each : std::as_const(m_drivers)) {
        if (const auto driver = each.lock())
            driver->abandon();
    }
}

std::shared_ptr<RouterDriver> DriverFactory::makeFor(const RouterConnection& connection)
{
    switch (connection.vendor) {
    case RouterVendor::simulator:
        return std::make_shared<SimulatorDriver>(connection, m_mainQueue);
    case RouterVendor::blackmagicVideohub:
        return makeOnThread<VideohubDriver>(u"videohub.driver"_s, connection);
    case RouterVendor::rossUltrix:
    case RouterVendor::genericSWP08:
        return makeOnThread<SWP08Driver>(u"swp08.driver"_s, connection);
    case RouterVendor::evertzQuartz:
        return makeOnThread<QuartzDriver>(u"quartz.driver"_s, connection);
    case RouterVendor::ajaKumo:
        return std::make_shared<KumoDriver>(connection, m_mainQueue);
    case RouterVendor::lightware:
        return makeOnThread<LightwareDriver>(u"lightware.driver"_s, connection);
    }
    Q_UNREACHABLE();
}

template <typename Driver>
std::shared_ptr<RouterDriver> DriverFactory::makeOnThread(
    const QString& label, const RouterConnection& connection)
{
    auto& thread = m_threads[label];
    if (!thread)
        thread = std::make_shared<ThreadQueue>(label);
    const auto made = std::make_shared<OnThread<Driver>>(thread, connection);
    return {made, &made->driver};
}

} // namespace corvane
