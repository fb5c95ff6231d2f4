#include "Drivers/Families.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

using namespace std::chrono_literals;

/// A router that closes at any moment of its greeting is offline from then on, whatever it had already said.
TEST(LinkEnd, IsTheLastThatIsToldOfARouterThatClosesWhileItIsRead)
{
    const std::string closed = "disconnected The router closed the connection.";
    for (const auto& family : tcpFamilies()) {
        SCOPED_TRACE(family.name);
        bool isWhole = false;
        for (qint64 bytes = 0; !isWhole; bytes += bytes < 32 ? 1 : 97) {
            SCOPED_TRACE(bytes);
            FamilyHarness running(family);
            running.router->faults().closeAfterBytes = bytes;
            running.run([](RouterDriver& driver) { return driver.connect(); });
            running.settle();
            isWhole = !running.log->contains(closed);
            if (isWhole)
                break;
            running.settle();
            const auto said = running.log->takeNew();
            ASSERT_GE(said.size(), 2U);
            EXPECT_EQ(said.at(said.size() - 2), closed);
            EXPECT_EQ(said.back(), "disconnected");
            running.queue.advance(6s);
            running.queue.advance(1h);
            EXPECT_THAT(running.log->takeNew(), testing::IsEmpty());
        }
    }
}

} // namespace

} // namespace corvane
