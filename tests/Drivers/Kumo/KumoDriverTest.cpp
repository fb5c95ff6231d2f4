#include "KumoDriverFixture.h"

namespace corvane {

namespace {

TEST_F(KumoDriverTest, RoutesAndNamesAndSeesWhatOthersDo)
{
    connect();
    take(2, 1);
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_EQ(matrix.source(0, 1), 2);
    const auto label = u"Köln & \"B\" +100%;"_s;
    rename(label);
    EXPECT_TRUE(pumpUntilOver(2));
    EXPECT_EQ(matrix.label(emulator::Side::Source, 2), label);
    EXPECT_THAT(log->takeNew(), ElementsAre("route 0:1=2", "label source 2 " + label.toStdString()));
    matrix.setRoutes({{0, 0, 1}, {0, 1, 0}});
    EXPECT_THAT(look(), ElementsAre("route 0:0=1", "route 0:1=0"));
    EXPECT_THAT(look(), IsEmpty());
    EXPECT_THAT(outcomes, ElementsAre("done", "done"));
}

TEST_F(KumoDriverTest, LooksForWhatOthersDidTwoSecondsAfterTheLastLook)
{
    connect();
    queue.advance(1999ms);
    pumpUntilIdle({&queue});
    EXPECT_EQ(device.receivedMessages().size(), 9);
    device.faults().hold = true;
    queue.advance(1ms);
    ASSERT_TRUE(pumpUntilAsked(10));
    // The device takes its time; the pause begins when it has answered.
    queue.advance(5s);
    matrix.setRoutes({{0, 1, 0}});
    device.faults().hold = false;
    device.release();
    ASSERT_TRUE(pump([this] { return log->contains("route 0:1=0"); }));
    (void)log->takeNew();
    queue.advance(1999ms);
    pumpUntilIdle({&queue});
    EXPECT_EQ(device.receivedMessages().size(), 11);
    EXPECT_THAT(look(), IsEmpty());
    EXPECT_EQ(device.receivedMessages().size(), 13);
}

TEST_F(KumoDriverTest, IsNotKeptAliveByItsPolling)
{
    connect();
    queue.advance(1s);
    const std::weak_ptr<KumoDriver> life = driver;
    driver.reset();
    EXPECT_TRUE(life.expired());
    queue.advance(1h);
    pumpUntilIdle({&queue});
    EXPECT_EQ(device.receivedMessages().size(), 9);
    renew();
}

TEST_F(KumoDriverTest, LeavesALockedOutputAsItIs)
{
    connect();
    matrix.setLocks({{0, emulator::somebodyElse}});
    start([](KumoDriver& router) {
        return router.takeAll({Route{0, 1, 0}, Route{0, 0, 2}, Route{0, 1, 2}});
    });
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_THAT(outcomes, ElementsAre("Connection error: HTTP 403"));
    EXPECT_THAT(log->takeNew(), ElementsAre("route 0:1=0"));
    EXPECT_THAT(look(), IsEmpty());
}

TEST_F(KumoDriverTest, TellsOfADeviceThatKeepsItsOldRoute)
{
    device.faults().acknowledgeOnly = true;
    matrix.setRoutes({{0, 1, emulator::noSource}});
    EXPECT_THAT(connecting().back(), testing::EndsWith(" routes 0=0"));
    take(2, 0);
    take(2, 1);
    EXPECT_TRUE(pumpUntilOver(2));
    EXPECT_THAT(outcomes, ElementsAre("done", "done"));
    EXPECT_THAT(log->takeNew(),
        testing::UnorderedElementsAre("route 0:0=0", "refused KUMO kept Out 1 on In 1.", "route 0:1=-1",
            "refused KUMO kept Out 2 on In 0."));
}

TEST_F(KumoDriverTest, LetsTheNextLookSettleWhatCouldNotBeReadBack)
{
    connect();
    device.faults().hold = true;
    take(2, 0);
    EXPECT_TRUE(pumpUntilAsked(10));
    device.quirks().brokenJson = true;
    device.faults().hold = false;
    device.release();
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_THAT(outcomes, ElementsAre("done"));
    EXPECT_THAT(look(), IsEmpty());
    device.quirks() = {.failNext = 1};
    EXPECT_THAT(look(), IsEmpty());
    EXPECT_THAT(look(), ElementsAre("route 0:0=2"));
}

TEST_F(KumoDriverTest, WaitsForASlowAnswerButNotForEver)
{
    connect();
    device.faults().hold = true;
    take(2, 0);
    ASSERT_TRUE(pumpUntilAsked(10));
    queue.advance(7999ms);
    EXPECT_THAT(outcomes, IsEmpty());
    queue.advance(1ms);
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_THAT(outcomes, ElementsAre("Timed out after 8 seconds"));
    EXPECT_THAT(log->takeNew(), IsEmpty());
    // The device had done it all the same, and a look that has been waiting for its answer finds that out.
    ASSERT_TRUE(pumpUntilAsked(11));
    device.release();
    EXPECT_TRUE(pump([this] { return log->contains("route 0:0=2"); }));
}

TEST_F(KumoDriverTest, ForgetsALookThatATakeOvertakes)
{
    connect();
    matrix.setRoutes({{0, 0, 1}, {0, 1, 2}});
    device.faults().hold = true;
    queue.advance(2s);
    ASSERT_TRUE(pumpUntilAsked(10));
    take(2, 0);
    ASSERT_TRUE(pumpUntilAsked(11));
    device.faults().hold = false;
    device.release();
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_THAT(log->takeNew(), ElementsAre("route 0:0=2"));
    EXPECT_THAT(look(), ElementsAre("route 0:1=2"));
}

TEST_F(KumoDriverTest, GoesOnWithALookThatSawNoSourceThoughATakeOvertookIt)
{
    matrix.setRoutes({{0, 0, emulator::noSource}});
    EXPECT_THAT(connecting().back(), testing::EndsWith(" routes 1=1"));
    matrix.setRoutes({{0, 1, 2}});
    device.faults().hold = true;
    queue.advance(2s);
    ASSERT_TRUE(pumpUntilAsked(10));
    device.faults().hold = false;
    take(2, 0);
    EXPECT_TRUE(pumpUntilOver(1));
    device.release();
    EXPECT_TRUE(pump([this] { return log->contains("route 0:1=2"); }));
    EXPECT_THAT(log->takeNew(), ElementsAre("route 0:0=2", "route 0:1=2"));
}

TEST_F(KumoDriverTest, DropsAValueThatWasReadBeforeATakeTookEffectAndComesAfterIt)
{
    connect();
    device.faults() = {.acknowledgeOnly = true, .hold = true};
    take(2, 0);
    ASSERT_TRUE(pumpUntilAsked(10));
    queue.advance(2s);
    ASSERT_TRUE(pumpUntilAsked(11));
    matrix.setRoutes({{0, 0, 2}, {0, 1, 0}});
    device.faults().hold = false;
    device.releaseOldest();
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_THAT(log->takeNew(), ElementsAre("route 0:0=2"));
    const auto waiting = queue.waitingCount();
    device.release();
    // The look is given up, and the pause before the next one begins.
    ASSERT_TRUE(pump([&] { return queue.waitingCount() == waiting + 1; }));
    EXPECT_THAT(log->takeNew(), IsEmpty());
    EXPECT_THAT(look(), ElementsAre("route 0:1=0"));
}

TEST_F(KumoDriverTest, FinishesTheRequestUnderWayWhenDisconnectedAndSaysNothingMore)
{
    connect();
    device.faults().hold = true;
    take(2, 0);
    ASSERT_TRUE(pumpUntilAsked(10));
    disconnect();
    EXPECT_TRUE(pumpUntilOver(1));
    device.release();
    EXPECT_TRUE(pumpUntilOver(2));
    EXPECT_THAT(outcomes, ElementsAre("done", "done"));
    queue.advance(1h);
    pumpUntilIdle({&queue});
    EXPECT_EQ(device.receivedMessages().size(), 10);
    EXPECT_THAT(log->takeNew(), IsEmpty());
}

} // namespace

} // namespace corvane
