#include "Drivers/DriverFactory.h"
#include "Drivers/Families.h"
#include "Drivers/Kumo/KumoDriver.h"
#include "Drivers/LW3/LightwareDriver.h"
#include "Drivers/Quartz/QuartzDriver.h"
#include "Drivers/SWP08/SWP08Driver.h"
#include "Drivers/Simulator/SimulatorDriver.h"
#include "Drivers/Videohub/VideohubDriver.h"
#include "Foundation/EventLoopQueue.h"
#include "Foundation/Task.h"

namespace corvane {

namespace {

using emulator::EmulatorServer;

TEST(DriverFactory, MakesTheDriverThatSpeaksTheRoutersProtocol)
{
    ManualQueue queue;
    DriverFactory factory(queue);
    const auto driverFor = [&](RouterVendor vendor) {
        RouterConnection router;
        router.vendor = vendor;
        return factory.makeDriver(router);
    };
    EXPECT_TRUE(std::dynamic_pointer_cast<KumoDriver>(driverFor(RouterVendor::ajaKumo)));
    EXPECT_TRUE(std::dynamic_pointer_cast<LightwareDriver>(driverFor(RouterVendor::lightware)));
    EXPECT_TRUE(std::dynamic_pointer_cast<SimulatorDriver>(driverFor(RouterVendor::simulator)));
    EXPECT_TRUE(std::dynamic_pointer_cast<VideohubDriver>(driverFor(RouterVendor::blackmagicVideohub)));
    EXPECT_TRUE(std::dynamic_pointer_cast<SWP08Driver>(driverFor(RouterVendor::rossUltrix)));
    EXPECT_TRUE(std::dynamic_pointer_cast<SWP08Driver>(driverFor(RouterVendor::genericSWP08)));
    EXPECT_TRUE(std::dynamic_pointer_cast<QuartzDriver>(driverFor(RouterVendor::evertzQuartz)));
}

/// A driver as in the program, the TCP families' on their own threads: what crosses over is what
/// ThreadSanitizer is to see.
class LiveDriverTest : public testing::TestWithParam<const Family*> {
protected:
    void TearDown() override
    {
        factory.reset();
        mainQueue->end();
    }

    void connect()
    {
        RouterConnection saved;
        saved.vendor = GetParam()->vendor;
        saved.host = u"127.0.0.1"_s;
        saved.port = router->port();
        saved.simSourceCount = 4;
        saved.simDestinationCount = 4;
        log.clear();
        driver = factory->makeDriver(saved);
        driver->events().consume(
            *mainQueue, {}, [this](const auto& event) { log.push_back(eventText(event)); });
        startTask(*mainQueue, [driver = driver] { return driver->connect(); });
    }

    void take(qint64 source)
    {
        const QList<Route> routes{{0, 2, source}, {0, 3, source}};
        startTask(*mainQueue, [this, driver = driver, routes, source]() -> QCoro::Task<> {
            try {
                co_await driver->takeAll(routes);
                co_await driver->setLabel(u"A"_s, source % 2, PortKind::source);
                co_await driver->setLock(0, 0, source > 0);
            } catch (const std::exception& failure) {
                log.emplace_back(failure.what());
            }
        });
    }

    /// Until commands can be sent.
    [[nodiscard]] bool pumpUntilReady()
    {
        return pumpUntil([&] {
            return std::ranges::any_of(log, [](const std::string& line) {
                return line.starts_with("status Reading router") || line.starts_with("status Interrogating")
                    || line.starts_with("connected");
            });
        });
    }

    emulator::EmulatedMatrix matrix{4, 4};
    std::unique_ptr<EmulatorServer> router = GetParam()->makeRouter(matrix);
    std::vector<std::string> log;
    std::optional<MainQueue> mainQueue = std::make_optional<MainQueue>();
    std::optional<DriverFactory> factory = std::make_optional<DriverFactory>(*mainQueue);
    std::shared_ptr<RouterDriver> driver;
};

TEST_P(LiveDriverTest, WorksOnTheThreadOfItsFamily)
{
    for (int round = 0; round < 3; ++round) {
        connect();
        ASSERT_TRUE(pumpUntilReady());
        take(round);
        ASSERT_TRUE(pumpUntil([&] { return matrix.source(0, 3) == round; }));
        EXPECT_EQ(matrix.source(0, 2), round);
        router->dropClients(EmulatorServer::Drop::InMidMessage);
        EXPECT_TRUE(pumpUntil([&] { return router->clientCount() == 0; }));
        driver->disconnect();
    }
}

TEST_P(LiveDriverTest, EndsTogetherWithItsThreadWhateverItIsDoingAndWhoeverHoldsIt)
{
    const auto doNothing = [] {};
    const std::vector<std::function<void()>> stages{doNothing,
        [this] { EXPECT_TRUE(pumpUntil([this] { return router->clientCount() > 0; })); },
        [this] { EXPECT_TRUE(pumpUntilReady()); },
        [this] {
            EXPECT_TRUE(pumpUntilReady());
            take(1);
            pumpUntilIdle();
            take(2);
        },
        [this] {
            router->stopListening();
            router->dropClients();
            pumpUntilIdle();
        }};
    const std::vector<std::function<void()>> ends{doNothing, [this] { driver.reset(); },
        [this] { factory->abandonDrivers(); }, [this] { factory.reset(); }};
    for (const auto& reachStage : stages) {
        for (const auto& end : ends) {
            connect();
            reachStage();
            const std::weak_ptr<RouterDriver> watched = driver;
            end();
            factory.reset();
            mainQueue->end();
            mainQueue.reset();
            driver.reset();
            EXPECT_TRUE(watched.expired());
            mainQueue.emplace();
            factory.emplace(*mainQueue);
            router->listenAgain();
        }
    }
}

/// All that have a router to talk to.
std::vector<const Family*> families()
{
    std::vector<const Family*> all;
    for (const auto& family : allFamilies()) {
        if (family.vendor != RouterVendor::simulator)
            all.push_back(&family);
    }
    return all;
}

INSTANTIATE_TEST_SUITE_P(OfEachFamily, LiveDriverTest, testing::ValuesIn(families()),
    [](const auto& family) { return rawValue(family.param->vendor).toStdString(); });

} // namespace

} // namespace corvane
