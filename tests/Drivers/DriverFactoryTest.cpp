#include "Drivers/DriverFactory.h"
#include "Drivers/DriverHarness.h"
#include "Drivers/KumoDriver.h"
#include "Drivers/LightwareDriver.h"
#include "Drivers/QuartzDriver.h"
#include "Drivers/SWP08Driver.h"
#include "Drivers/SimulatorDriver.h"
#include "Drivers/VideohubDriver.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

std::shared_ptr<RouterDriver> driverFor(RouterVendor vendor, SerialQueue& queue)
{
    RouterConnection router;
    router.vendor = vendor;
    return DriverFactory::makeDriver(router, queue);
}

TEST(DriverFactory, MakesTheDriverThatSpeaksTheRoutersProtocol)
{
    ManualQueue queue;
    EXPECT_TRUE(std::dynamic_pointer_cast<KumoDriver>(driverFor(RouterVendor::ajaKumo, queue)));
    EXPECT_TRUE(std::dynamic_pointer_cast<LightwareDriver>(driverFor(RouterVendor::lightware, queue)));
    EXPECT_TRUE(std::dynamic_pointer_cast<SimulatorDriver>(driverFor(RouterVendor::simulator, queue)));
    EXPECT_TRUE(
        std::dynamic_pointer_cast<VideohubDriver>(driverFor(RouterVendor::blackmagicVideohub, queue)));
    EXPECT_TRUE(std::dynamic_pointer_cast<SWP08Driver>(driverFor(RouterVendor::rossUltrix, queue)));
    EXPECT_TRUE(std::dynamic_pointer_cast<SWP08Driver>(driverFor(RouterVendor::genericSWP08, queue)));
    EXPECT_TRUE(std::dynamic_pointer_cast<QuartzDriver>(driverFor(RouterVendor::evertzQuartz, queue)));
}

} // namespace

} // namespace corvane
