#include "Foundation/Task.h"
#include "support/ManualQueue.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace corvane {

namespace {

using namespace std::chrono_literals;

TEST(Task, StartsOnALaterTurnAndKeepsItsCapturesToTheEnd)
{
    ManualQueue queue;
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> watched = held;
    startTask(queue, [&queue, held = std::move(held)]() -> QCoro::Task<> {
        ++*held;
        co_await sleepFor(queue, 1s);
        ++*held;
    });
    EXPECT_EQ(*watched.lock(), 0);
    queue.runReady();
    EXPECT_EQ(*watched.lock(), 1);
    queue.advance(1s);
    EXPECT_TRUE(watched.expired());
}

TEST(Task, SleepEndsEarlyWhenStoppedAndGoesOnLikeAnyOther)
{
    ManualQueue queue;
    std::stop_source stop;
    int awake = 0;
    startTask(queue, [&]() -> QCoro::Task<> {
        co_await sleepFor(queue, 1h, stop.get_token());
        ++awake;
        // Already stopped: this one must not sleep either.
        co_await sleepFor(queue, 1h, stop.get_token());
        ++awake;
    });
    queue.advance(1min);
    EXPECT_EQ(awake, 0);
    stop.request_stop();
    queue.runReady();
    EXPECT_EQ(awake, 2);
    queue.advance(2h);
    EXPECT_EQ(awake, 2);
}

TEST(Task, AFailureThatNobodyHandledIsReportedAndHarmsNobodyElse)
{
    ManualQueue queue;
    bool otherRan = false;
    startTask(queue, []() -> QCoro::Task<> {
        throw std::runtime_error("told on standard error");
        co_return;
    });
    startTask(queue, [&]() -> QCoro::Task<> {
        otherRan = true;
        co_return;
    });
    testing::internal::CaptureStderr();
    queue.runReady();
    EXPECT_NE(testing::internal::GetCapturedStderr().find("told on standard error"), std::string::npos);
    EXPECT_TRUE(otherRan);
}

} // namespace

} // namespace corvane
