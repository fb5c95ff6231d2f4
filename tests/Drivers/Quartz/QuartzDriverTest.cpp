#include "Drivers/Quartz/QuartzDriver.h"
#include "Drivers/Interrogating/InterrogatingDriverFixture.h"

namespace corvane {

namespace {

using emulator::QuartzEmulator;
using emulator::QuartzQuirks;

using LineEnd = QuartzQuirks::LineEnd;

const std::string refusal = "refused The router refused the command.";

using QuartzDriverTest = InterrogatingDriverFixture<QuartzDriver, QuartzEmulator>;

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
        {"takes acknowledged", {.acknowledgeLines = true}},
        {"takes of what is there ignored", {.ignoreRepeats = true}},
        {"others' lines heard", {.echoOthers = true}},
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
        EXPECT_THAT(running->log.takeNew(), ElementsAre(testing::_, interrogating, connectedText()));
        const auto other = connecting();
        EXPECT_TRUE(other->pumpUntilSays(interrogating));
        EXPECT_FALSE(outcome(other->driver->takeAll({{0, 1, 1}, {0, 2, 7}, {0, 2, 2}})));
        EXPECT_TRUE(running->pump([&] { return running->log.all().size() >= 5; }));
        running->settle();
        EXPECT_THAT(running->log.takeNew(), ElementsAre("route 0:2=7", "route 0:2=2"));
    }
}

TEST_F(QuartzDriverTest, BearsEveryAnswerToASurplusQuestion)
{
    struct Case {
        const char* name;
        QuartzQuirks quirks;
        std::ptrdiff_t refusals;
    };
    const Case cases[] = {
        {"a question mark", {}, 2},
        {"an error", {.refusal = ".E"}, 2},
        {"nothing", {.refusal = ""}, 0},
        {"nothing to questions", {.refusal = ".E", .ignoreAbsentPorts = true}, 0},
    };
    saved.simDestinationCount = 20;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        router.quirks() = c.quirks;
        const auto heardBefore = router.receivedMessages().size();
        const auto running = connecting();
        EXPECT_TRUE(running->pump(
            [&] { return router.receivedMessages().size() == heardBefore + 20 && router.hasSaidAll(); }));
        running->settle();
        EXPECT_EQ(std::ranges::count(running->log.takeNew(), refusal), c.refusals);
        running->advance(1s);
        EXPECT_THAT(running->log.takeNew(), ElementsAre(connectedText()));
        // A take that can't be done is put back, whatever is said to it.
        EXPECT_FALSE(outcome(running->driver->take(5, 19, 0)));
        if (c.quirks.refusal.isEmpty())
            continue;
        EXPECT_TRUE(running->pumpUntilSays(refusal));
        running->settle();
        running->advance(1s);
        EXPECT_EQ(running->log.all().back(), "route 0:19=none");
    }
}

} // namespace

} // namespace corvane
