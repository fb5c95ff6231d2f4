#include "Drivers/Families.h"

#include "Drivers/Kumo/KumoDriver.h"
#include "Drivers/LW3/LightwareDriver.h"
#include "Drivers/Quartz/QuartzDriver.h"
#include "Drivers/SWP08/SWP08Driver.h"
#include "Drivers/Simulator/SimulatorDriver.h"
#include "Drivers/Videohub/VideohubDriver.h"
#include "emulator/KumoEmulator.h"
#include "emulator/LW3Emulator.h"
#include "emulator/QuartzEmulator.h"
#include "emulator/SWP08Emulator.h"
#include "emulator/VideohubEmulator.h"

#include <algorithm>

namespace corvane {

namespace {

template <typename Emulator>
std::unique_ptr<emulator::EmulatorServer> makeRouter(emulator::EmulatedMatrix& matrix)
{
    return std::make_unique<Emulator>(matrix);
}

std::unique_ptr<emulator::EmulatorServer> noRouter(emulator::EmulatedMatrix& /*matrix*/)
{
    return nullptr;
}

template <typename Driver>
std::shared_ptr<RouterDriver> makeDriver(const RouterConnection& connection, SerialQueue& queue)
{
    return std::make_shared<Driver>(connection, queue);
}

template <typename Driver, typename Emulator>
Family family(const char* name, RouterVendor vendor)
{
    return {name, vendor, makeRouter<Emulator>, makeDriver<Driver>};
}

} // namespace

RouterConnection connectionTo(const emulator::EmulatorServer* router)
{
    RouterConnection connection;
    connection.name = u"Studio"_s;
    connection.host = u"127.0.0.1"_s;
    connection.port = router ? router->port() : 0;
    connection.simSourceCount = 2;
    connection.simDestinationCount = 2;
    return connection;
}

const std::vector<Family>& tcpFamilies()
{
    static const std::vector<Family> families{
        family<VideohubDriver, emulator::VideohubEmulator>("Videohub", RouterVendor::blackmagicVideohub),
        family<SWP08Driver, emulator::SWP08Emulator>("SW-P-08", RouterVendor::rossUltrix),
        family<QuartzDriver, emulator::QuartzEmulator>("Quartz", RouterVendor::evertzQuartz),
        family<LightwareDriver, emulator::LW3Emulator>("LW3", RouterVendor::lightware),
    };
    return families;
}

const std::vector<Family>& allFamilies()
{
    static const auto families = [] {
        auto all = tcpFamilies();
        all.push_back(family<KumoDriver, emulator::KumoEmulator>("KUMO", RouterVendor::ajaKumo));
        all.push_back({"Simulator", RouterVendor::simulator, noRouter, makeDriver<SimulatorDriver>});
        return all;
    }();
    return families;
}

FamilyHarness::FamilyHarness(const Family& family)
    : router(family.makeRouter(matrix)), driver(family.makeDriver(connectionTo(router.get()), queue))
{
    log.emplace(driver->events(), queue);
}

FamilyHarness::~FamilyHarness()
{
    run([](RouterDriver& ending) { return ending.disconnect(); });
    driver.reset();
    settle();
}

std::string FamilyHarness::run(const std::function<QCoro::Task<>(RouterDriver&)>& operation)
{
    std::string thrown;
    bool isOver = false;
    startTask(queue, [&, held = driver]() -> QCoro::Task<> {
        try {
            co_await operation(*held);
        } catch (const std::exception& error) {
            thrown = error.what();
        }
        isOver = true;
    });
    for (int step = 0; step < 1000 && !isOver; ++step) {
        settle();
        queue.advance(1ms);
    }
    return isOver ? thrown : "not over";
}

void FamilyHarness::settle()
{
    pumpUntilIdle({&queue});
}

bool FamilyHarness::waitFor(const std::string& beginning)
{
    const auto isThere = [&] {
        return std::ranges::any_of(
            log->all(), [&](const std::string& text) { return text.starts_with(beginning); });
    };
    for (int step = 0; step < 500 && !isThere(); ++step) {
        settle();
        queue.advance(20ms);
    }
    return isThere();
}

} // namespace corvane
