#include "Drivers/DriverHarness.h"
#include "Drivers/Families.h"
#include "Foundation/EventLoopQueue.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Each family on a thread of its own, as in the program: what crosses over is what ThreadSanitizer is to
/// see.
TEST(OwnThread, ServesEveryFamilyWhileTheMainThreadCommandsAndTheRouterDropsTheLine)
{
    for (const auto& family : tcpFamilies()) {
        SCOPED_TRACE(family.name);
        emulator::EmulatedMatrix matrix(2, 2);
        const auto router = family.makeRouter(matrix);
        MainQueue mainQueue;
        ThreadQueue queue(u"test.driver"_s);
        for (int round = 0; round < 3; ++round) {
            const auto driver = family.makeDriver(connectionTo(router.get()), queue);
            EventLog log(driver->events(), mainQueue);
            EXPECT_FALSE(outcome(driver->connect()));
            ASSERT_TRUE(pumpUntil([&] { return log.all().size() >= 2; }));
            const int source = 1 - matrix.source(0, 1);
            EXPECT_FALSE(outcome(driver->takeAll({{0, 0, source}, {0, 1, source}})));
            // Not every family can, and that is seen on its thread. A lock would outlive its round.
            (void)outcome(driver->setLock(0, 0, round == 2));
            (void)outcome(driver->setLabel(u"A"_s, round % 2, PortKind::source));
            EXPECT_TRUE(pumpUntil([&] { return matrix.source(0, 1) == source; }));
            if (round == 1) {
                router->dropClients(emulator::EmulatorServer::Drop::InMidMessage);
                EXPECT_TRUE(pumpUntil([&] { return log.contains("disconnected"); }));
            }
            EXPECT_FALSE(outcome(driver->disconnect()));
        }
        EXPECT_TRUE(pumpUntil([&] { return router->clientCount() == 0; }));
    }
}

} // namespace

} // namespace corvane
