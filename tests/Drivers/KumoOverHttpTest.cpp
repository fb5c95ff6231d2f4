#include "Drivers/EventText.h"
#include "Drivers/KumoDriver.h"
#include "Foundation/Task.h"
#include "emulator/KumoEmulator.h"
#include "support/Pump.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using emulator::EmulatedMatrix;
using emulator::KumoEmulator;
using emulator::KumoQuirks;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string contacting = "status Contacting KUMO at 127.0.0.1…";
const std::string reading = "status Reading routing and labels…";
const std::string connectedTo3x2 =
    "connected \"Stage\" \"KUMO 3×2\" [Input 1|Input 2|Input 3] [Output 1|Output 2] routes 0=0 1=1";

/// A KUMO of three sources and two destinations, reached over real sockets, and its driver.
class KumoOverHttpTest : public testing::Test {
protected:
    KumoOverHttpTest() { renew(); }

    void TearDown() override { finish(); }

    /// Lets everything come to its end that still holds the driver.
    void finish()
    {
        device.faults().hold = false;
        disconnect();
        device.release();
        EXPECT_TRUE(pump([this] { return driver.use_count() == 1; }));
    }

    void renew()
    {
        if (driver)
            finish();
        outcomes.clear();
        RouterConnection router;
        router.name = u"Stage"_s;
        router.host = u"127.0.0.1"_s;
        router.port = device.port();
        driver = std::make_shared<KumoDriver>(router, queue);
        log.emplace(driver->events(), queue);
    }

    void start(std::function<QCoro::Task<>(KumoDriver&)> command)
    {
        startTask(queue, [this, held = driver, command = std::move(command)]() -> QCoro::Task<> {
            try {
                co_await command(*held);
                outcomes.emplace_back("done");
            } catch (const std::exception& error) {
                outcomes.emplace_back(error.what());
            }
        });
    }

    void take(qint64 source, qint64 destination)
    {
        start([=](KumoDriver& router) { return router.take(source, destination, 0); });
    }

    void disconnect()
    {
        start([](KumoDriver& router) { return router.disconnect(); });
    }

    bool pump(const std::function<bool()>& condition) { return pumpUntil(condition, {&queue}); }

    bool pumpUntilOver(std::size_t operations)
    {
        const bool areOver = pump([&] { return outcomes.size() == operations; });
        // What they reported is still on its way to the log.
        queue.runReady();
        return areOver;
    }

    /// Until the device has been asked this often since it was made.
    bool pumpUntilAsked(qsizetype times)
    {
        return pump([&] { return device.receivedMessages().size() == times; });
    }

    void startConnecting()
    {
        start([](KumoDriver& router) { return router.connect(); });
    }

    /// What was reported on the way to an end of the reading, good or bad.
    std::vector<std::string> connecting()
    {
        startConnecting();
        EXPECT_TRUE(pumpUntilOver(1));
        outcomes.clear();
        return log->takeNew();
    }

    void connect() { EXPECT_THAT(connecting(), ElementsAre(contacting, reading, connectedTo3x2)); }

    /// What the driver reports of one look at both destinations.
    std::vector<std::string> look()
    {
        queue.advance(2s);
        // The first request is under way. The second one's deadline and the next pause are still to come.
        const auto waiting = queue.waitingCount();
        EXPECT_TRUE(pump([&] { return queue.waitingCount() == waiting + 2; }));
        queue.runReady();
        return log->takeNew();
    }

    ManualQueue queue;
    EmulatedMatrix matrix{3, 2};
    KumoEmulator device{matrix};
    std::shared_ptr<KumoDriver> driver;
    std::optional<EventLog> log;
    /// Of each operation: "done" or what it threw.
    std::vector<std::string> outcomes;
};

TEST_F(KumoOverHttpTest, ReadsTheDeviceHoweverItSpeaks)
{
    struct Case {
        const char* name;
        KumoQuirks quirks;
        int pieceSize = 0;
    };
    const Case cases[] = {
        {"numbers as texts", {}},
        {"numbers as numbers", {.numericValues = true}},
        {"a false content type", {.htmlContentType = true}},
        {"a connection for each answer", {.closeEachConnection = true}},
        {"byte by byte", {}, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        device.quirks() = c.quirks;
        device.faults().pieceSize = c.pieceSize;
        renew();
        connect();
        EXPECT_EQ(device.mostRequestsAtOnce(), 1);
    }
    EXPECT_EQ(device.receivedMessages().size(), std::ssize(cases) * 9);
}

TEST_F(KumoOverHttpTest, SaysWhyTheSizeCannotBeRead)
{
    const std::string answered = "error KUMO didn't answer: ";
    struct Case {
        const char* name;
        KumoQuirks quirks;
        std::string error;
    };
    const Case cases[] = {
        {"a login", {.loginRequired = true}, answered + "Connection error: HTTP 404"},
        {"a failure", {.failNext = 1}, answered + "Connection error: HTTP 500"},
        {"broken JSON", {.brokenJson = true}, answered + "The reply is not JSON, from byte 63"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        device.quirks() = c.quirks;
        renew();
        EXPECT_THAT(connecting(), ElementsAre(contacting, c.error));
    }
    device.stopListening();
    device.dropClients();
    renew();
    EXPECT_THAT(connecting(), ElementsAre(contacting, answered + "Connection refused"));
}

TEST_F(KumoOverHttpTest, DoesWithoutTheNamesAndRoutesThatTheDeviceFailsToTell)
{
    device.faults().hold = true;
    startConnecting();
    for (int asked = 1; asked <= 9; ++asked) {
        // The answer to what is asked next is made at once.
        device.quirks().failNext = asked == 3 || asked == 7 || asked == 8 ? 1 : 0;
        device.quirks().brokenJson = asked == 5;
        ASSERT_TRUE(pumpUntilAsked(asked));
        device.release();
    }
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_EQ(log->takeNew().back(),
        "connected \"Stage\" \"KUMO 3×2\" [In 1|Input 2|In 3] [Output 1|Out 2] routes 1=1");
    device.faults().hold = false;
    EXPECT_THAT(look(), ElementsAre("route 0:0=0"));
}

TEST_F(KumoOverHttpTest, RoutesAndNamesAndSeesWhatOthersDo)
{
    connect();
    take(2, 1);
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_EQ(matrix.source(0, 1), 2);
    const auto label = u"Köln & \"B\" +100%;"_s;
    start([&](KumoDriver& router) { return router.setLabel(label, 2, PortKind::source); });
    EXPECT_TRUE(pumpUntilOver(2));
    EXPECT_EQ(matrix.label(emulator::Side::Source, 2), label);
    EXPECT_THAT(log->takeNew(), ElementsAre("route 0:1=2", "label source 2 " + label.toStdString()));
    matrix.setRoutes({{0, 0, 1}, {0, 1, 0}});
    EXPECT_THAT(look(), ElementsAre("route 0:0=1", "route 0:1=0"));
    EXPECT_THAT(look(), IsEmpty());
    EXPECT_THAT(outcomes, ElementsAre("done", "done"));
}

TEST_F(KumoOverHttpTest, LeavesALockedOutputAsItIs)
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

TEST_F(KumoOverHttpTest, TellsOfADeviceThatKeepsItsOldRoute)
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

TEST_F(KumoOverHttpTest, TellsTheCallerOfATakeThatFailedInsideTheDevice)
{
    connect();
    device.quirks().failNext = 1;
    take(2, 0);
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_THAT(outcomes, ElementsAre("Connection error: HTTP 500"));
    EXPECT_EQ(matrix.source(0, 0), 0);
    EXPECT_THAT(look(), IsEmpty());
}

TEST_F(KumoOverHttpTest, LetsTheNextLookSettleWhatCouldNotBeReadBack)
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

TEST_F(KumoOverHttpTest, WaitsForASlowAnswerButNotForEver)
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

TEST_F(KumoOverHttpTest, ForgetsALookThatATakeOvertakes)
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

TEST_F(KumoOverHttpTest, BearsALineThatBreaksInMidAnswer)
{
    connect();
    device.faults().hold = true;
    take(2, 0);
    ASSERT_TRUE(pumpUntilAsked(10));
    device.faults().hold = false;
    device.dropClients(KumoEmulator::Drop::InMidMessage);
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_THAT(outcomes, ElementsAre(testing::Not(testing::AnyOf("done", ""))));
    EXPECT_THAT(look(), ElementsAre("route 0:0=2"));
}

TEST_F(KumoOverHttpTest, FinishesTheRequestUnderWayWhenDisconnectedAndSaysNothingMore)
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

TEST_F(KumoOverHttpTest, CanBeDisconnectedAtAnyPointOfTheReading)
{
    for (int answered = 0; answered < 9; ++answered) {
        SCOPED_TRACE(answered);
        renew();
        device.faults().hold = true;
        const auto before = device.receivedMessages().size();
        startConnecting();
        for (int asked = 1; asked <= answered + 1; ++asked) {
            ASSERT_TRUE(pumpUntilAsked(before + asked));
            if (asked <= answered)
                device.release();
        }
        const auto reported = log->all().size();
        disconnect();
        EXPECT_TRUE(pumpUntilOver(1));
        device.release();
        EXPECT_TRUE(pumpUntilOver(2));
        EXPECT_EQ(log->all().size(), reported);
        EXPECT_EQ(device.receivedMessages().size(), before + answered + 1);
    }
}

} // namespace

} // namespace corvane
