#include "RawClient.h"

#include "emulator/QuartzEmulator.h"

#include <gmock/gmock.h>

using namespace corvane;
using namespace corvane::emulator;

namespace {

using LineEnd = QuartzQuirks::LineEnd;

class QuartzEmulatorTest : public testing::Test {
protected:
    EmulatedMatrix matrix{12, 1200, 3};
    QuartzEmulator router{matrix};
};

TEST_F(QuartzEmulatorTest, AnswersQuestionsAndTellsOfTakesAsItsQuirksSay)
{
    struct Case {
        const char* name;
        QuartzQuirks quirks;
        const char* sent;
        const char* heard;
    };
    const Case cases[] = {
        {"question", {}, ".IV3\r", ".AV3,3\r"},
        {"question for two levels", {}, ".IAB3\r", ".AA3,3\r.AB3,3\r"},
        {"beyond 999", {}, ".IV1200\r", ".AV1200,12\r"},
        {"take", {}, ".SV3,1\r", ".UV3,1\r"},
        {"the same again", {}, ".SV3,1\r", ".UV3,1\r"},
        {"repeats are ignored", {.ignoreRepeats = true}, ".SV3,1\r.IV3\r", ".AV3,1\r"},
        {"take on two levels", {}, ".SVB4,12\r", ".UVB4,12\r"},
        {"half of it was there", {}, ".SVA4,12\r", ".UA4,12\r"},
        {"padded", {}, ".SV003,002\r", ".UV3,2\r"},
        {"CR LF and blank lines", {}, "\r\n.SV3,6\r\n\r\n.IV3\n", ".UV3,6\r.AV3,6\r"},
        {"answers in LF", {.lineEnd = LineEnd::Lf}, ".IV3\r", ".AV3,6\n"},
        {"answers in CR LF", {.lineEnd = LineEnd::CrLf}, ".IV3\r", ".AV3,6\r\n"},
        {"answers padded", {.padNumbers = true}, ".IV3\r.IV1200\r", ".AV003,006\r.AV1200,012\r"},
        {"acknowledged", {.acknowledgeLines = true}, ".SV1,2\r.IV1\r", ".A\r.UV1,2\r.AV1,2\r"},
        {"interposed", {.interposeUpdates = true}, ".IV3\r.SV1200,1\r",
            ".UV4,12\r.AV3,6\r.UV1,2\r.UV1200,1\r"},
        {"another refusal", {.refusal = ".E"}, ".IV1201\r.SV1,13\r", ".E\r.E\r"},
        {"no refusal", {.refusal = ""}, ".IV1201\r.IV3\r", ".AV3,6\r"},
        {"a question about nothing", {.refusal = ".E", .ignoreAbsentPorts = true},
            ".IV1201\r.IV0\r.SV1201,1\r", ".E\r.E\r"},
    };
    RawClient client(router);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        router.quirks() = c.quirks;
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

TEST_F(QuartzEmulatorTest, TellsOthersWhatHappens)
{
    RawClient one(router);
    RawClient other(router);
    ASSERT_TRUE(pumpUntil([&] { return router.clientCount() == 2; }));
    expectAnswer(one, ".SV1,2\r", ".UV1,2\r");
    matrix.setRoutes({{.level = 2, .destination = 0, .source = noSource}});
    matrix.setRoutes({{0, 2, 4}, {1, 2, 4}, {2, 2, 5}});
    router.powerUp();
    matrix.replace(MatrixState::ofSize(1, 1));
    EXPECT_HEARS(other, ".UV1,2\r.UB1,0\r.UVA3,5\r.UB3,6\r.P\r.P\r");

    router.quirks().echoOthers = true;
    expectAnswer(one, ".IV1\r", ".UB1,0\r.UVA3,5\r.UB3,6\r.P\r.P\r.AV1,1\r");
    EXPECT_HEARS(other, ".IV1\r");
    router.dropClients(EmulatorServer::Drop::InMidMessage);
    EXPECT_HEARS(other, ".UV1,1");
}

} // namespace
