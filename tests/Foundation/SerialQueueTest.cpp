#include "Foundation/EventLoopQueue.h"
#include "support/ManualQueue.h"
#include "support/Pump.h"

#include <gtest/gtest.h>

#include <QObject>
#include <QSemaphore>

#include <thread>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

TEST(MainQueue, RunsFunctionsInOrderOnALaterTurn)
{
    MainQueue queue;
    std::vector<int> seen;
    queue.async([&] {
        seen.push_back(1);
        queue.async([&] { seen.push_back(3); });
        queue.sync([&] { seen.push_back(2); });
    });
    EXPECT_TRUE(seen.empty());
    EXPECT_TRUE(pumpUntil([&] { return seen.size() == 3; }));
    EXPECT_EQ(seen, (std::vector{1, 2, 3}));
}

TEST(MainQueue, LetsTheEventLoopInBetweenTurns)
{
    MainQueue queue;
    bool eventLoopHadItsChance = false;
    QObject other;
    QMetaObject::invokeMethod(
        &other, [&] { eventLoopHadItsChance = true; }, Qt::QueuedConnection);
    // Queues itself for ever: only a queue that yields between turns lets the other object in.
    std::function<void()> again = [&] {
        if (!eventLoopHadItsChance)
            queue.async(again);
    };
    queue.async(again);
    EXPECT_TRUE(pumpUntil([&] { return eventLoopHadItsChance; }));
}

TEST(ThreadQueue, RunsOnItsOwnThreadAndHopsBothWays)
{
    MainQueue main;
    ThreadQueue queue(u"test.queue"_s);
    EXPECT_FALSE(queue.isCurrent());
    bool wasOnQueue = false;
    queue.sync([&] { wasOnQueue = queue.isCurrent() && !main.isCurrent(); });
    EXPECT_TRUE(wasOnQueue);

    int answers = 0;
    for (int i = 0; i < 100; ++i)
        queue.async([&] { main.async([&] { ++answers; }); });
    EXPECT_TRUE(pumpUntil([&] { return answers == 100; }));
}

TEST(ThreadQueue, KeepsTheOrderOfEachOfManyCallers)
{
    ThreadQueue queue(u"test.queue"_s);
    constexpr int callers = 4;
    constexpr int calls = 2000;
    std::array<int, callers> last{};
    bool inOrder = true;
    {
        std::vector<std::jthread> threads;
        for (int caller = 0; caller < callers; ++caller) {
            threads.emplace_back([&, caller] {
                for (int call = 1; call <= calls; ++call)
                    queue.async(
                        [&, caller, call] { inOrder &= std::exchange(last.at(caller), call) == call - 1; });
            });
        }
    }
    queue.sync([] {});
    EXPECT_TRUE(inOrder);
    EXPECT_EQ(last, (std::array{calls, calls, calls, calls}));
}

TEST(ThreadQueue, RunsTimedItemsInOrderOfTheirDeadlines)
{
    ThreadQueue queue(u"test.queue"_s);
    QSemaphore done;
    std::vector<int> seen;
    queue.sync([&] {
        queue.after(3ms, [&] {
            seen.push_back(2);
            done.release();
        });
        queue.after(1ms, [&] { seen.push_back(1); });
        queue.after(2ms, [&] { seen.push_back(-1); }).cancel();
    });
    done.acquire();
    queue.sync([&] { EXPECT_EQ(seen, (std::vector{1, 2})); });
}

TEST(ThreadQueue, RunsWhatIsQueuedBeforeItEnds)
{
    int runs = 0;
    {
        ThreadQueue queue(u"test.queue"_s);
        for (int i = 0; i < 1000; ++i)
            queue.async([&] { ++runs; });
        queue.after(1h, [&] { runs = -1; });
    }
    EXPECT_EQ(runs, 1000);
}

TEST(ThreadQueue, EndsOnItsOwnThreadWhateverStillWaits)
{
    // Qt says so when a timer outlives its thread.
    const auto before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
        ADD_FAILURE() << text.toStdString();
    });
    const auto held = std::make_shared<int>(0);
    {
        ThreadQueue queue(u"test.queue"_s);
        queue.after(1h, [held] {});
        // The queue comes to this one only when it is told to end.
        queue.async([&queue, held] { queue.async([&queue, held] { queue.after(1h, [held] {}); }); });
    }
    qInstallMessageHandler(before);
    EXPECT_EQ(held.use_count(), 1);
}

TEST(WorkItem, CancelledReleasesWhatItHoldsAndNeverRuns)
{
    ManualQueue queue;
    const auto held = std::make_shared<int>(0);
    auto item = queue.after(1s, [held] { ++*held; });
    EXPECT_EQ(held.use_count(), 2);
    item.cancel();
    EXPECT_EQ(held.use_count(), 1);
    queue.advance(2s);
    EXPECT_EQ(*held, 0);
}

} // namespace

} // namespace corvane
