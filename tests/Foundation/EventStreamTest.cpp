#include "Foundation/EventStream.h"
#include "Foundation/EventLoopQueue.h"
#include "support/ManualQueue.h"
#include "support/Pump.h"

#include <gtest/gtest.h>

#include <numeric>
#include <thread>

namespace corvane {

namespace {

std::vector<int> numbers(int count)
{
    std::vector<int> result(count);
    std::iota(result.begin(), result.end(), 0);
    return result;
}

TEST(EventStream, KeepsWhatWasYieldedBeforeTheConsumerCame)
{
    ManualQueue queue;
    const EventStream<int> stream;
    stream.yield(0);
    stream.yield(std::vector{1, 2});
    std::vector<int> seen;
    stream.consume(queue, {}, [&](int event) { seen.push_back(event); });
    stream.yield(3);
    EXPECT_TRUE(seen.empty());
    queue.runReady();
    EXPECT_EQ(seen, numbers(4));
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
