#include "Drivers/DriverFactory.h"
#include "Drivers/DriverHarness.h"
#include "Drivers/Kumo/KumoDriver.h"
#include "Drivers/LW3/LightwareDriver.h"
#include "Drivers/Quartz/QuartzDriver.h"
#include "Drivers/SWP08/SWP08Driver.h"
#include "Drivers/Simulator/SimulatorDriver.h"
#include "Drivers/Videohub/VideohubDriver.h"
#include "Foundation/EventLoopQueue.h"
#include "Foundation/Task.h"
#include "emulator/KumoEmulator.h"
#include "emulator/LW3Emulator.h"
#include "emulator/QuartzEmulator.h"
#include "emulator/SWP08Emulator.h"
#include "emulator/VideohubEmulator.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
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

/// A kind of router, and what its driver says once commands can be sent.
struct Family {
    RouterVendor vendor;
    std::unique_ptr<EmulatorServer> (*makeRouter)(emulator::EmulatedMatrix& matrix);
    std::string ready;
};

template <typename Emulator>
std::unique_ptr<EmulatorServer> make(emulator::EmulatedMatrix& matrix)
{
    return std::make_unique<Emulator>(matrix);
}

/// A driver as in the program, the TCP families' on their own threads: what crosses over is what
/// ThreadSanitizer is to see.
class LiveDriverTest : public testing::TestWithParam<Family> {
protected:
    void connect()
    {
        RouterConnection saved;
        saved.vendor = GetParam().vendor;
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
        startTask(*mainQueue, [this, driver = driver, routes]() -> QCoro::Task<> {
            try {
                co_await driver->takeAll(routes);
            } catch (const std::exception& failure) {
                log.emplace_back(failure.what());
            }
        });
    }

    [[nodiscard]] bool pumpUntilSays(const std::string& beginning)
    {
        return pumpUntil([&] {
            return std::ranges::any_of(log, [&](const auto& line) { return line.starts_with(beginning); });
        });
    }

    emulator::EmulatedMatrix matrix{4, 4};
    std::unique_ptr<EmulatorServer> router = GetParam().makeRouter(matrix);
    std::vector<std::string> log;
    std::optional<MainQueue> mainQueue = std::make_optional<MainQueue>();
    std::optional<DriverFactory> factory = std::make_optional<DriverFactory>(*mainQueue);
    std::shared_ptr<RouterDriver> driver;
};

TEST_P(LiveDriverTest, WorksOnTheThreadOfItsFamily)
{
    for (int round = 0; round < 3; ++round) {
        connect();
        ASSERT_TRUE(pumpUntilSays(GetParam().ready));
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
        [this] { EXPECT_TRUE(pumpUntilSays(GetParam().ready)); },
        [this] {
            EXPECT_TRUE(pumpUntilSays(GetParam().ready));
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

INSTANTIATE_TEST_SUITE_P(OfEachFamily, LiveDriverTest,
    testing::Values(
        Family{RouterVendor::blackmagicVideohub, make<emulator::VideohubEmulator>, "status Reading"},
        Family{RouterVendor::rossUltrix, make<emulator::SWP08Emulator>, "status Interrogating"},
        Family{RouterVendor::evertzQuartz, make<emulator::QuartzEmulator>, "status Interrogating"},
        Family{RouterVendor::lightware, make<emulator::LW3Emulator>, "status Reading"},
        Family{RouterVendor::ajaKumo, make<emulator::KumoEmulator>, "connected"}),
    [](const auto& family) { return rawValue(family.param.vendor).toStdString(); });

} // namespace

} // namespace corvane
