#pragma once

#include "Drivers/EventText.h"
#include "Foundation/Task.h"
#include "emulator/EmulatorServer.h"
#include "support/Pump.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// One family of routers: how to emulate one, and how to control it.
struct Family {
    std::string name;
    RouterVendor vendor;
    /// Null where the driver itself is the router.
    std::unique_ptr<emulator::EmulatorServer> (*makeRouter)(emulator::EmulatedMatrix&);
    std::shared_ptr<RouterDriver> (*makeDriver)(const RouterConnection&, SerialQueue&);
};

/// All that speak over TCP and tell of their end.
[[nodiscard]] const std::vector<Family>& tcpFamilies();
[[nodiscard]] const std::vector<Family>& allFamilies();

/// A saved router of two sources and two destinations, where this one listens; null is nowhere.
[[nodiscard]] RouterConnection connectionTo(const emulator::EmulatorServer* router);

/// A router of two sources and two destinations, and its driver on a queue that the test moves.
class FamilyHarness {
public:
    explicit FamilyHarness(const Family& family);
    FamilyHarness(const FamilyHarness&) = delete;
    FamilyHarness& operator=(const FamilyHarness&) = delete;
    /// What the driver has left on its queue belongs to it, and ends before the queue does.
    ~FamilyHarness();

    /// Runs an operation to its end; what it threw, if it did.
    std::string run(const std::function<QCoro::Task<>(RouterDriver&)>& operation);
    /// Lets what is under way settle.
    void settle();
    /// Until something of this beginning is reported, while time passes slowly.
    bool waitFor(const std::string& beginning);

    ManualQueue queue;
    emulator::EmulatedMatrix matrix{2, 2};
    const std::unique_ptr<emulator::EmulatorServer> router;
    std::shared_ptr<RouterDriver> driver;
    std::optional<EventLog> log;
};

} // namespace corvane
