#include "Drivers/DriverFactory.h"
#include "Drivers/DriverHarness.h"
#include "Drivers/KumoDriver.h"
#include "Drivers/QuartzDriver.h"
#include "Drivers/SWP08Driver.h"
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
    EXPECT_TRUE(std::dynamic_pointer_cast<SimulatorDriver>(driverFor(RouterVendor::simulator, queue)));
    EXPECT_TRUE(
        std::dynamic_pointer_cast<VideohubDriver>(driverFor(RouterVendor::blackmagicVideohub, queue)));
    EXPECT_TRUE(std::dynamic_pointer_cast<SWP08Driver>(driverFor(RouterVendor::rossUltrix, queue)));
    EXPECT_TRUE(std::dynamic_pointer_cast<SWP08Driver>(driverFor(RouterVendor::genericSWP08, queue)));
    EXPECT_TRUE(std::dynamic_pointer_cast<QuartzDriver>(driverFor(RouterVendor::evertzQuartz, queue)));
}

TEST(DriverFactory, SaysSoWhereAProtocolIsNotSpokenYet)
{
    ManualQueue queue;
    const auto driver = driverFor(RouterVendor::lightware, queue);
    EventLog log(driver->events(), queue);
    EXPECT_FALSE(outcome(driver->connect()));
    queue.runReady();
    EXPECT_THAT(log.all(), ElementsAre("error This version can't talk to Lightware MX2 routers yet."));
    EXPECT_EQ(outcome(driver->takeAll({})), DriverError::notConnected());
    EXPECT_FALSE(outcome(driver->disconnect()));
}

} // namespace

} // namespace corvane
