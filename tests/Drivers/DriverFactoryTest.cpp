#include "Drivers/DriverFactory.h"
#include "Drivers/DriverHarness.h"
#include "Drivers/KumoDriver.h"
#include "Drivers/LightwareDriver.h"
#include "Drivers/SimulatorDriver.h"
#include "Drivers/VideohubDriver.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

using testing::ElementsAre;

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
}

TEST(DriverFactory, SaysSoWhereAProtocolIsNotSpokenYet)
{
    ManualQueue queue;
    const auto driver = driverFor(RouterVendor::evertzQuartz, queue);
    EventLog log(driver->events(), queue);
    EXPECT_FALSE(outcome(driver->connect()));
    queue.runReady();
    EXPECT_THAT(log.all(), ElementsAre("error This version can't talk to Evertz (Quartz) routers yet."));
    EXPECT_EQ(outcome(driver->takeAll({})), DriverError::notConnected());
    EXPECT_FALSE(outcome(driver->disconnect()));
}

} // namespace

} // namespace corvane
