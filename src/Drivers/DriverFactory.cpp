#include "Drivers/DriverFactory.h"

#include "Drivers/KumoDriver.h"
#include "Drivers/LightwareDriver.h"
#include "Drivers/QuartzDriver.h"
#include "Drivers/SWP08Driver.h"
#include "Drivers/SimulatorDriver.h"
#include "Drivers/VideohubDriver.h"

namespace corvane {

std::shared_ptr<RouterDriver> DriverFactory::makeDriver(
    const RouterConnection& connection, SerialQueue& mainQueue)
{
    switch (connection.vendor) {
    case RouterVendor::simulator:
        return std::make_shared<SimulatorDriver>(connection, mainQueue);
    case RouterVendor::blackmagicVideohub:
        return std::make_shared<VideohubDriver>(connection);
    case RouterVendor::rossUltrix:
    case RouterVendor::genericSWP08:
        return std::make_shared<SWP08Driver>(connection);
    case RouterVendor::evertzQuartz:
        return std::make_shared<QuartzDriver>(connection);
    case RouterVendor::ajaKumo:
        return std::make_shared<KumoDriver>(connection, mainQueue);
    case RouterVendor::lightware:
        return std::make_shared<LightwareDriver>(connection);
    }
    Q_UNREACHABLE();
}

} // namespace corvane
