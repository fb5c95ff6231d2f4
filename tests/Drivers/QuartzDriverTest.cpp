#include "Drivers/QuartzDriver.h"
#include "Drivers/InterrogatingDriverFixture.h"

namespace corvane {

namespace {

using namespace std::chrono_literals;
using emulator::QuartzEmulator;
using emulator::QuartzQuirks;
using testing::ElementsAre;
using testing::IsEmpty;

using LineEnd = QuartzQuirks::LineEnd;

const std::string refusal = "refused The router refused the command.";

using QuartzDriverTest = InterrogatingDriverFixture<QuartzDriver, QuartzEmulator>;

TEST_F(QuartzDriverTest, SpeaksInLinesThatEndInCrAlone)
{
    const auto running = connected();
    EXPECT_FALSE(outcome(running->driver->take(16, 0, 5)));
    EXPECT_TRUE(running->pumpUntilSays("route 0:0=16"));
    QByteArray questions;
    for (int port = 1; port <= 18; ++port)
        questions += ".IV" + QByteArray::number(port) + '\r';
    EXPECT_EQ(router.receivedBytes(), questions + ".SV1,17\r");
}

TEST_F(QuartzDriverTest, ConnectsToRoutersOfEveryKind)
{
    struct Case {
        const char* name;
        QuartzQuirks quirks;
        int pieceSize = 0;
    };
    const Case cases[] = {
        {"CR", {.lineEnd = LineEnd::Cr}},
        {"LF", {.lineEnd = LineEnd::Lf}},
        {"CR LF", {.lineEnd = LineEnd::CrLf}},
        {"padded numbers", {.padNumbers = true}},
        {"updates between question and answer", {.interposeUpdates = true}},
        {"cut at every byte", {.lineEnd = LineEnd::CrLf, .padNumbers = true, .interposeUpdates = true}, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        router.quirks() = c.quirks;
        router.faults().pieceSize = c.pieceSize;
        const auto heardBefore = router.receivedMessages().size();
        auto running = connecting();
        EXPECT_TRUE(running->pump(
            [&] { return router.receivedMessages().size() == heardBefore + 18 && router.hasSaidAll(); }));
        running->settle();
        running->advance(1s);
        EXPECT_THAT(running->log.all(), ElementsAre(testing::_, interrogating, connectedText()));
    }
}

TEST_F(QuartzDriverTest, ReportsEverySurplusQuestionThatIsRefused)
{
    saved.simDestinationCount = 20;
    const auto running = answered();
    EXPECT_THAT(running->log.all(), ElementsAre(testing::_, interrogating, refusal, refusal));
    running->advance(1s);
    EXPECT_THAT(running->log.takeNew(), ElementsAre(connectedText()));
}

TEST_F(QuartzDriverTest, WorksWithARouterThatSaysNothingToWhatItCannotDo)
{
    router.quirks().refusal = "";
    saved.simDestinationCount = 20;
    connected();
}

TEST_F(QuartzDriverTest, ReadsTheDestinationAgainWhoseTakeIsRefused)
{
    const auto running = connected();
    router.faults().refuseNext = 1;
    matrix.setLocks({{16, emulator::somebodyElse}});
    EXPECT_FALSE(outcome(running->driver->takeAll({{0, 3, 9}, {0, 16, 9}, {0, 4, 9}})));
    EXPECT_TRUE(running->pump([&] { return commands().size() == 5; }));
    running->settle();
    EXPECT_THAT(running->log.takeNew(), ElementsAre(refusal, refusal, "route 0:4=9"));
    EXPECT_THAT(commands(), ElementsAre(".SV4,10", ".SV17,10", ".SV5,10", ".IV4", ".IV17"));
}

TEST_F(QuartzDriverTest, TellsAnUpdateThatComesBetweenACommandAndItsAnswer)
{
    const auto running = connected();
    router.quirks().acknowledgeLines = true;
    router.quirks().interposeUpdates = true;
    matrix.setRoutes({{0, 4, 7}});
    EXPECT_TRUE(running->pumpUntilSays("route 0:4=7"));
    EXPECT_FALSE(outcome(running->driver->take(9, 3, 0)));
    EXPECT_TRUE(running->pumpUntilSays("route 0:3=9"));
    // The update of another destination has not cleared the take, its own has.
    router.faults().refuseNext = 1;
    EXPECT_FALSE(outcome(running->driver->take(1, 5, 0)));
    EXPECT_TRUE(running->pump([&] { return commands().size() == 3; }));
    EXPECT_THAT(commands(), ElementsAre(".SV4,10", ".SV6,2", ".IV6"));
}

TEST_F(QuartzDriverTest, TakesOtherLevelsForReportsToo)
{
    const auto running = connected();
    matrix.setRoutes({{1, 2, 8}});
    EXPECT_TRUE(running->pumpUntilSays("route 0:2=8"));
    matrix.setRoutes({{0, 3, 8}, {1, 3, 8}, {2, 3, 8}});
    EXPECT_TRUE(running->pumpUntilSays("route 0:3=8"));
    EXPECT_EQ(running->log.takeNew().size(), 2U);
}

TEST_F(QuartzDriverTest, HearsOtherClientsWithoutBeingConfused)
{
    const auto running = connected();
    router.quirks().echoOthers = true;
    auto other = std::make_unique<Harness>(queue, saved);
    EXPECT_FALSE(outcome(other->driver->connect()));
    EXPECT_TRUE(running->pump([&] { return commands().size() == 18; }));
    EXPECT_FALSE(outcome(other->driver->take(9, 3, 0)));
    EXPECT_TRUE(running->pumpUntilSays("route 0:3=9"));
    router.powerUp();
    running->settle();
    EXPECT_EQ(running->log.takeNew().size(), 1U);
}

} // namespace

} // namespace corvane
