#include "Foundation/EventStream.h"
#include "Foundation/EventLoopQueue.h"
#include "support/ManualQueue.h"
#include "support/Pump.h"

#include <gtest/gtest.h>

#include <numeric>
#include <stop_token>
#include <thread>

namespace corvane {

namespace {

std::vector<int> numbers(int count)
{
    std::vector<int> result(count);
    std::iota(result.begin(), result.end(), 0);
    return result;
}

TEST(EventStream, DropsWhatComesAfterTheEndAndDeliversWhatCameBefore)
{
    ManualQueue queue;
    const EventStream<int> stream;
    std::vector<int> seen;
    stream.consume(queue, {}, [&](int event) { seen.push_back(event); });
    stream.yield(0);
    stream.finish();
    stream.yield(1);
    stream.yield(std::vector{2, 3});
    queue.runReady();
    EXPECT_EQ(seen, numbers(1));
}

TEST(EventStream, StopsInTheMiddleOfABatchWhenTold)
{
    ManualQueue queue;
    const EventStream<int> stream;
    std::stop_source stop;
    std::vector<int> seen;
    stream.consume(queue, stop.get_token(), [&](int event) {
        seen.push_back(event);
        if (event == 1)
            stop.request_stop();
    });
    stream.yield(numbers(5));
    queue.runReady();
    stream.yield(5);
    queue.runReady();
    EXPECT_EQ(seen, numbers(2));
}

TEST(EventStream, CarriesManyChunksInOrderHoweverTheyWereYielded)
{
    ManualQueue queue;
    const EventStream<int> stream;
    std::vector<int> seen;
    int next = 0;
    for (const int size : {1, 1023, 1, 1024, 1025, 5, 20'000, 0, 700, 700, 1}) {
        for (int i = 0; i < size % 7; ++i)
            stream.yield(next++);
        std::vector<int> batch(size);
        std::iota(batch.begin(), batch.end(), next);
        next += size;
        stream.yield(std::move(batch));
        if (size == 1025)
            stream.consume(queue, {}, [&](int event) { seen.push_back(event); });
    }
    queue.runReady();
    EXPECT_EQ(seen, numbers(next));
}

/// A millisecond passes whenever somebody looks at the clock.
class TickingQueue final : public SerialQueue {
public:
    void async(Function function) override { m_ready.push_back(std::move(function)); }
    WorkItem after(Duration, Function) override { return {}; }
    Instant now() const override { return m_now += std::chrono::milliseconds(1); }
    bool isCurrent() const override { return true; }

    /// False when there was nothing to run.
    bool runTurn()
    {
        if (m_ready.empty())
            return false;
        const auto function = std::exchange(m_ready, {});
        for (const auto& each : function)
            each();
        return true;
    }

private:
    std::vector<Function> m_ready;
    mutable Instant m_now;
};

TEST(EventStream, LetsOthersHaveATurnAlsoWhileItDropsABacklog)
{
    TickingQueue queue;
    const EventStream<std::shared_ptr<int>> stream;
    std::stop_source stop;
    stream.consume(queue, stop.get_token(), [&](const std::shared_ptr<int>&) { stop.request_stop(); });
    const auto watched = std::make_shared<int>();
    for (int i = 0; i < 100'000; ++i)
        stream.yield(watched);
    queue.runTurn();
    EXPECT_GT(watched.use_count(), 50'000);
    int turns = 1;
    while (queue.runTurn())
        ++turns;
    EXPECT_GT(turns, 10);
    EXPECT_EQ(watched.use_count(), 1);
}

TEST(EventStream, AsksAProducerThatCanPauseToDoSoUntilTheBacklogHasHalved)
{
    constexpr auto limit = EventStream<int>::longBacklog;
    ManualQueue queue;
    const EventStream<int> stream;
    std::size_t seen = 0;
    std::vector<std::size_t> resumedAt;
    const auto mustPause = [&] { return stream.callWhenShrunk([&] { resumedAt.push_back(seen); }); };
    for (std::size_t i = 1; i < limit; ++i)
        stream.yield(0);
    EXPECT_FALSE(mustPause());
    stream.yield(std::vector{0});
    EXPECT_TRUE(mustPause());
    EXPECT_TRUE(mustPause());
    stream.consume(queue, {}, [&](int) { ++seen; });
    EXPECT_TRUE(resumedAt.empty());
    queue.runReady();
    ASSERT_EQ(resumedAt.size(), 1U);
    EXPECT_NEAR(static_cast<double>(resumedAt.front()), limit / 2.0, 2000);
    EXPECT_EQ(seen, limit);
    EXPECT_FALSE(mustPause());

    stream.yield(std::vector<int>(limit));
    EXPECT_TRUE(mustPause());
    stream.finish();
    EXPECT_FALSE(mustPause());
    queue.runReady();
    EXPECT_EQ(resumedAt.size(), 1U);
}

TEST(EventStream, KeepsEventsThatTheHandlerItselfYields)
{
    ManualQueue queue;
    const EventStream<int> stream;
    std::vector<int> seen;
    stream.consume(queue, {}, [&](int event) {
        seen.push_back(event);
        if (event < 300)
            stream.yield(event + 1);
    });
    stream.yield(0);
    queue.runReady();
    EXPECT_EQ(seen, numbers(301));
}

TEST(EventStream, CarriesABurstAcrossThreadsInTheOrderOfEachProducer)
{
    MainQueue queue;
    const EventStream<std::pair<int, int>> stream;
    constexpr int producers = 3;
    constexpr int events = 5000;
    std::array<int, producers> last{};
    int received = 0;
    bool inOrder = true;
    stream.consume(queue, {}, [&](const std::pair<int, int>& event) {
        inOrder &= std::exchange(last.at(event.first), event.second) == event.second - 1;
        ++received;
    });
    {
        std::vector<std::jthread> threads;
        for (int producer = 0; producer < producers; ++producer) {
            threads.emplace_back([stream, producer] {
                for (int event = 1; event <= events; ++event)
                    stream.yield({producer, event});
            });
        }
        EXPECT_TRUE(pumpUntil([&] { return received == producers * events; }));
    }
    EXPECT_TRUE(inOrder);
}

} // namespace

} // namespace corvane
