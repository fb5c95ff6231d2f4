#include "KumoDriverFixture.h"

namespace corvane {

namespace {

using namespace std::chrono_literals;
using driverEvent::CommandRefused;
using driverEvent::LabelChanged;
using driverEvent::RouteChanged;
using Events = std::vector<RouterDriverEvent>;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(KumoDriverTest, ReadsBackAtOnceWhatATakeDid)
{
    connect();
    take(1, 1);
    EXPECT_EQ(kumo.requests, (QStringList{setting(statusOf(2), u"2"_s), reading(statusOf(2))}));
    EXPECT_EQ(reported, Events{(RouteChanged{0, 1, 1})});
    queue.advance(2s);
    EXPECT_EQ(reported.size(), 1);
}

TEST_F(KumoDriverTest, BelievesTheReadBackAndNotTheRequest)
{
    kumo.ignoresSets = true;
    connect();
    const std::pair<QByteArray, qint64> cases[] = {{"\"2\"", 1}, {"0", -1}};
    for (const auto& [value, source] : cases) {
        kumo.set(statusOf(1), value);
        forget();
        take(0, 0);
        EXPECT_EQ(reported,
            (Events{
                RouteChanged{0, 0, source}, CommandRefused{u"KUMO kept Out 1 on In %1."_s.arg(source + 1)}}));
        EXPECT_EQ(returned, 1);
    }
}

TEST_F(KumoDriverTest, CountsATakeAsDoneThatCannotBeReadBackAndLetsALaterLookSettleIt)
{
    connect();
    kumo.statuses = {{reading(statusOf(1)), 0}};
    take(0, 0);
    EXPECT_EQ(returned, 1);
    queue.advance(1h);
    EXPECT_THAT(reported, IsEmpty());
    kumo.statuses.clear();
    queue.advance(2s);
    EXPECT_EQ(reported, Events{(RouteChanged{0, 0, 0})});
}

TEST_F(KumoDriverTest, TakesInTheCallersOrderAndStopsAtTheFirstFailure)
{
    connect();
    const auto declined = setting(statusOf(2), u"1"_s);
    kumo.statuses = {{declined, 403}};
    start([](KumoDriver& router) {
        return router.takeAll({Route{0, 0, 0}, Route{5, 1, 0}, Route{0, 0, 1}});
    });
    EXPECT_EQ(kumo.requests, (QStringList{setting(statusOf(1), u"1"_s), reading(statusOf(1)), declined}));
    EXPECT_EQ(reported, Events{(RouteChanged{0, 0, 0})});
    EXPECT_THAT(thrown, ElementsAre("Connection error: HTTP 403"));
}

TEST_F(KumoDriverTest, RenamesPortsOnTheDeviceAndReportsTheNameAsItWasGiven)
{
    connect();
    rename(u"A&B %1"_s, 1, PortKind::source);
    rename({}, 0, PortKind::destination);
    const auto declined = setting(nameOf(u"Source1"_s), u"X"_s);
    kumo.statuses = {{declined, 0}};
    rename(u"X"_s, 0, PortKind::source);
    EXPECT_EQ(kumo.requests,
        (QStringList{setting(nameOf(u"Source2"_s), u"A%26B%20%251"_s), setting(nameOf(u"Destination1"_s), {}),
            declined}));
    EXPECT_EQ(reported,
        (Events{LabelChanged{PortKind::source, 1, u"A&B %1"_s}, LabelChanged{PortKind::destination, 0, {}}}));
    EXPECT_THAT(thrown, ElementsAre("Nobody there"));
}

TEST_F(KumoDriverTest, SendsNothingUnlessConnectedAndNeverALock)
{
    const auto command = [this] {
        take(0, 0);
        rename(u"X"_s, 0, PortKind::source);
        start([](KumoDriver& router) { return router.setLock(0, 0, true); });
    };
    make();
    command();
    connect();
    disconnect();
    command();
    const auto* const notConnected = "Not connected to the router.";
    const auto* const noLocks = "Locking isn't supported by this router.";
    EXPECT_THAT(
        thrown, ElementsAre(notConnected, notConnected, noLocks, notConnected, notConnected, noLocks));
    EXPECT_THAT(kumo.requests, IsEmpty());
}

TEST_F(KumoDriverTest, LooksForWhatOthersDidTwoSecondsAfterTheLastLook)
{
    connect();
    kumo.set(statusOf(2), "\"1\"");
    queue.advance(2s - 1ms);
    EXPECT_THAT(kumo.requests, IsEmpty());
    kumo.isHeld = true;
    queue.advance(1ms);
    // The device takes its time; the pause begins when it has answered.
    queue.advance(5s);
    EXPECT_EQ(kumo.requests, QStringList{reading(statusOf(1))});
    release();
    release();
    EXPECT_EQ(kumo.requests, (QStringList{reading(statusOf(1)), reading(statusOf(2))}));
    EXPECT_EQ(reported, Events{(RouteChanged{0, 1, 0})});
    queue.advance(2s - 1ms);
    EXPECT_EQ(kumo.requests.size(), 2);
    queue.advance(1ms);
    release();
    release();
    EXPECT_EQ(kumo.requests.size(), 4);
    EXPECT_EQ(reported.size(), 1);
}

TEST_F(KumoDriverTest, KeepsARouteThatTheDeviceDroppedOrDoesNotTell)
{
    connect();
    kumo.set(statusOf(2), "\"1\"");
    for (const auto* const value : {"0", "-1", "\"\"", "<html>", "2"}) {
        kumo.set(statusOf(1), value);
        queue.advance(2s);
        EXPECT_EQ(reported, Events{(RouteChanged{0, 1, 0})}) << value;
    }
}

TEST_F(KumoDriverTest, DropsAPolledValueThatATakeMayHaveOvertaken)
{
    connect();
    kumo.isHeld = true;
    kumo.set(statusOf(1), "9");
    queue.advance(2s);
    take(0, 0);
    ASSERT_EQ(kumo.requests, (QStringList{reading(statusOf(1)), setting(statusOf(1), u"1"_s)}));
    release();
    EXPECT_THAT(reported, IsEmpty());
    EXPECT_EQ(kumo.requests.size(), 2);
    release();
    release();
    EXPECT_EQ(reported, Events{(RouteChanged{0, 0, 0})});
    // The rest of that look was given up; the next one is whole again.
    kumo.isHeld = false;
    kumo.set(statusOf(2), "1");
    queue.advance(2s);
    EXPECT_EQ(reported.back(), RouterDriverEvent(RouteChanged{0, 1, 0}));
}

TEST_F(KumoDriverTest, DropsAValueThatWasPolledWhileATakeWasUnderWayAndComesAfterItsEffect)
{
    connect();
    kumo.isHeld = true;
    kumo.ignoresSets = true;
    take(0, 0);
    queue.advance(2s);
    // Asked before the device carried the take out, answered after the take was read back.
    kumo.set(statusOf(1), "\"1\"");
    release();
    ASSERT_EQ(kumo.requests,
        (QStringList{setting(statusOf(1), u"1"_s), reading(statusOf(1)), reading(statusOf(1))}));
    std::swap(kumo.held.front(), kumo.held.back());
    release();
    EXPECT_EQ(reported, Events{(RouteChanged{0, 0, 0})});
    release();
    EXPECT_EQ(reported.size(), 1);
    EXPECT_EQ(kumo.requests.size(), 3);
}

TEST_F(KumoDriverTest, FinishesWhatIsUnderWayWhenDisconnectedAndLooksNoMore)
{
    connect();
    kumo.isHeld = true;
    kumo.set(statusOf(1), "1");
    queue.advance(2s);
    take(1, 1);
    rename(u"X"_s, 0, PortKind::source);
    disconnect();
    disconnect();
    while (!kumo.held.empty())
        release();
    EXPECT_EQ(returned, 4);
    queue.advance(1h);
    EXPECT_EQ(kumo.requests.size(), 3);
    EXPECT_THAT(reported, IsEmpty());
    EXPECT_EQ(queue.waitingCount(), 0);
}

TEST_F(KumoDriverTest, IsNotKeptAliveByItsPolling)
{
    connect();
    queue.advance(1s);
    driver.reset();
    EXPECT_TRUE(kumo.isInvalidated);
    queue.advance(1h);
    EXPECT_THAT(kumo.requests, IsEmpty());
}

} // namespace

} // namespace corvane
