#include "RawClient.h"

#include "emulator/QuartzEmulator.h"

#include <gmock/gmock.h>

using namespace corvane;
using namespace corvane::emulator;
using testing::ElementsAre;

namespace {

class QuartzEmulatorTest : public testing::Test {
protected:
    EmulatedMatrix matrix{12, 1200, 3};
    QuartzEmulator router{matrix};
};

TEST_F(QuartzEmulatorTest, AnswersQuestionsAndTellsOfTakes)
{
    struct Case {
        const char* name;
        const char* sent;
        const char* heard;
    };
    const Case cases[] = {
        {"question", ".IV3\r", ".AV3,3\r"},
        {"question for two levels", ".IAB3\r", ".AA3,3\r.AB3,3\r"},
        {"beyond 999", ".IV1200\r", ".AV1200,12\r"},
        {"take", ".SV3,1\r", ".UV3,1\r"},
        {"the same again", ".SV3,1\r", ".UV3,1\r"},
        {"take on two levels", ".SVB4,12\r", ".UVB4,12\r"},
        {"half of it was there", ".SVA4,12\r", ".UA4,12\r"},
        {"padded", ".SV003,002\r", ".UV3,2\r"},
        {"LF", ".SV3,5\n", ".UV3,5\r"},
        {"CR LF and blank lines", "\r\n.SV3,6\r\n\r\n.IV3\r\n", ".UV3,6\r.AV3,6\r"},
    };
    RawClient client(router);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        expectAnswer(client, c.sent, c.heard);
    }
}

TEST_F(QuartzEmulatorTest, RefusesWhatItCannotDo)
{
    matrix.setLocks({{4, somebodyElse}});
    const char* sent[] = {".IV0\r", ".IV1201\r", ".IV\r", ".I3\r", ".IC3\r", ".IVV3\r", ".Iv3\r", ".IV3,1\r",
        ".SV3\r", ".SV3,0\r", ".SV3,13\r", ".SV3,-1\r", ".SV5,1\r", ".SV3,1,1\r", ".XV3\r", "hello\r", "?\r"};
    RawClient client(router);
    for (const auto* line : sent) {
        SCOPED_TRACE(line);
        expectAnswer(client, line, "?\r");
    }
    EXPECT_EQ(matrix.source(0, 4), 4);
}

TEST_F(QuartzEmulatorTest, SpeaksAsItsQuirksSay)
{
    using LineEnd = QuartzQuirks::LineEnd;
    struct Case {
        const char* name;
        QuartzQuirks quirks;
        const char* sent;
        const char* heard;
    };
    const Case cases[] = {
        {"LF", {.lineEnd = LineEnd::Lf}, ".IV3\r", ".AV3,3\n"},
        {"CR LF", {.lineEnd = LineEnd::CrLf}, ".IV3\r", ".AV3,3\r\n"},
        {"another refusal", {.refusal = ".E"}, ".IV1201\r", ".E\r"},
        {"no refusal", {.refusal = ""}, ".IV1201\r.IV3\r", ".AV3,3\r"},
        {"padded", {.padNumbers = true}, ".IV3\r.IV1200\r", ".AV003,003\r.AV1200,012\r"},
        {"acknowledged", {.acknowledgeLines = true}, ".SV1,2\r.IV1\r", ".A\r.UV1,2\r.AV1,2\r"},
        {"repeats are ignored", {.ignoreRepeats = true}, ".SV1,2\r.SV1,1\r", ".UV1,1\r"},
        {"interposed", {.interposeUpdates = true}, ".IV3\r.SV1200,1\r",
            ".UV4,4\r.AV3,3\r.UV1,1\r.UV1200,1\r"},
    };
    RawClient client(router);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        router.quirks() = c.quirks;
        expectAnswer(client, c.sent, c.heard);
    }
}

TEST_F(QuartzEmulatorTest, TellsOthersWhatHappens)
{
    RawClient one(router);
    RawClient other(router);
    ASSERT_TRUE(pumpUntil([&] { return router.clientCount() == 2; }));
    expectAnswer(one, ".SV1,2\r", ".UV1,2\r");
    EXPECT_HEARS(other, ".UV1,2\r");

    matrix.setRoutes({{.level = 2, .destination = 0, .source = noSource}});
    EXPECT_HEARS(other, ".UB1,0\r");
    matrix.setRoutes({{0, 2, 4}, {1, 2, 4}, {2, 2, 5}});
    EXPECT_HEARS(other, ".UVA3,5\r.UB3,6\r");
    router.powerUp();
    EXPECT_HEARS(other, ".P\r");
    matrix.replace(MatrixState::ofSize(1, 1));
    EXPECT_HEARS(other, ".P\r");

    router.quirks().echoOthers = true;
    expectAnswer(one, ".IV1\r", ".UB1,0\r.UVA3,5\r.UB3,6\r.P\r.P\r.AV1,1\r");
    EXPECT_HEARS(other, ".IV1\r");
    router.dropClients(EmulatorServer::Drop::InMidMessage);
    EXPECT_HEARS(other, ".UV1,1");
}

TEST_F(QuartzEmulatorTest, RefusesOrNeglectsTakesAsTold)
{
    router.faults().refuseNext = 1;
    RawClient client(router);
    expectAnswer(client, ".IV1\r.SV1,2\r", ".AV1,1\r?\r");
    router.faults().acknowledgeOnly = true;
    expectAnswer(client, ".SV1,2\r.IV1\r", ".A\r.AV1,1\r");
    EXPECT_THAT(router.receivedMessages(), ElementsAre(".IV1", ".SV1,2", ".SV1,2", ".IV1"));
}

} // namespace
