#include "Foundation/QuietTimer.h"
#include "support/ManualQueue.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

using namespace std::chrono_literals;

class QuietTimerTest : public testing::Test {
protected:
    ManualQueue queue;
    int calls = 0;
    QuietTimer timer{queue, 1200ms, [this] { ++calls; }};
};

TEST_F(QuietTimerTest, CallsOnceAfterTheLastRestart)
{
    timer.restart();
    queue.advance(1s);
    timer.restart();
    queue.advance(1199ms);
    EXPECT_EQ(calls, 0);
    queue.advance(1ms);
    EXPECT_EQ(calls, 1);
    queue.advance(1h);
    EXPECT_EQ(calls, 1);
    timer.restart();
    queue.advance(1200ms);
    EXPECT_EQ(calls, 2);
}

TEST_F(QuietTimerTest, KeepsOneItemWaitingHoweverOftenItIsRestarted)
{
    for (int i = 0; i < 1000; ++i)
        timer.restart();
    EXPECT_EQ(queue.waitingCount(), 1U);
}

TEST(QuietTimer, CallsAtItsLimitThoughItNeverFallsQuiet)
{
    ManualQueue queue;
    int calls = 0;
    QuietTimer timer(
        queue, 1200ms, [&] { ++calls; }, 5s);
    const auto keepBusy = [&](int times) {
        for (int i = 0; i < times; ++i) {
            timer.restart();
            queue.advance(1s);
        }
    };
    keepBusy(4);
    timer.restart();
    queue.advance(999ms);
    EXPECT_EQ(calls, 0);
    queue.advance(1ms);
    EXPECT_EQ(calls, 1);
    // The next restart is a first one again, after a call as after a cancellation.
    keepBusy(4);
    timer.cancel();
    keepBusy(4);
    EXPECT_EQ(calls, 1);
    queue.advance(200ms);
    EXPECT_EQ(calls, 2);
}

TEST(QuietTimer, MayBeDestroyedWhileWaitingAndWhileCalling)
{
    ManualQueue queue;
    int calls = 0;
    auto timer = std::make_unique<QuietTimer>(queue, 1s, [&] { ++calls; });
    timer->restart();
    timer.reset();
    queue.advance(2s);
    EXPECT_EQ(calls, 0);

    timer = std::make_unique<QuietTimer>(queue, 1s, [&] {
        timer.reset();
        ++calls;
    });
    timer->restart();
    queue.advance(2s);
    EXPECT_EQ(calls, 1);
}

} // namespace

} // namespace corvane
