#include "RawClient.h"

#include "emulator/SWP08Emulator.h"

#include <gmock/gmock.h>

using namespace corvane;
using namespace corvane::emulator;

namespace {

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

using Form = SWP08Quirks::Form;

class SWP08EmulatorTest : public testing::Test {
protected:
    static void expectAnswer(RawClient& client, const QByteArray& sent, const QByteArray& heard)
    {
        emulator::expectAnswer(client, QByteArray::fromHex(sent), QByteArray::fromHex(heard));
    }

    EmulatedMatrix matrix{300, 300, 2};
    SWP08Emulator router{matrix};
};

constexpr auto askFirst = "10 02 01 00 00 00 04 FB 10 03";
constexpr auto askSecond = "10 02 01 00 00 01 04 FA 10 03";
constexpr auto takeSecondToFirst = "10 02 02 00 00 00 01 05 F8 10 03";

TEST_F(SWP08EmulatorTest, AcknowledgesEveryMessageAndAnswersInKind)
{
    struct Case {
        const char* name;
        const char* sent;
        const char* heard;
    };
    const Case cases[] = {
        {"question", askSecond, "10 06 10 02 03 00 00 01 01 05 F6 10 03"},
        {"doubled 10h in data", "10 02 01 00 00 10 10 04 EB 10 03",
            "10 06 10 02 03 00 00 10 10 10 10 05 D8 10 03"},
        {"checksum 10h", "10 02 01 00 00 74 04 87 10 03", "10 06 10 02 03 00 00 74 74 05 10 10 10 03"},
        {"multiplier", "10 02 01 00 20 1F 04 BC 10 03", "10 06 10 02 03 00 22 1F 1F 05 98 10 03"},
        {"second level", "10 02 01 01 00 02 04 F8 10 03", "10 06 10 02 03 01 00 02 02 05 F3 10 03"},
        {"take 16 to 16, which is there", "10 02 02 00 00 10 10 10 10 05 D9 10 03",
            "10 06 10 02 04 00 00 10 10 10 10 05 D7 10 03"},
        {"take 200 to 287", "10 02 02 00 21 1F 48 05 71 10 03", "10 06 10 02 04 00 21 1F 48 05 6F 10 03"},
        {"an extended question, which it does not know", "10 02 81 00 00 00 01 05 79 10 03", "10 06"},
        {"anything else", "10 02 08 01 F7 10 03", "10 06"},
        {"noise around a frame", "00 06 10 03 10 10 10 02 08 01 F7 10 03 08", "10 06"},
        {"a frame begun again", "10 02 01 00 00 10 02 08 01 F7 10 03", "10 06"},
    };
    RawClient client(router);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        expectAnswer(client, c.sent, c.heard);
    }
}

TEST_F(SWP08EmulatorTest, SpeaksExtendedOfHighDestinationsWhereItsQuirksSay)
{
    router.quirks().extendedFrom = 256;
    struct Case {
        const char* name;
        const char* sent;
        const char* heard;
    };
    const Case cases[] = {
        {"a question", "10 02 81 00 00 01 1F 05 5A 10 03", "10 06 10 02 83 00 00 01 1F 01 1F 00 08 35 10 03"},
        {"a question for a low destination", "10 02 81 00 00 00 01 05 79 10 03",
            "10 06 10 02 83 00 00 00 01 00 01 00 08 73 10 03"},
        {"one for the second level", "10 02 81 00 01 01 1F 05 59 10 03",
            "10 06 10 02 83 00 01 01 1F 01 1F 00 08 34 10 03"},
        {"a take", "10 02 82 00 00 01 1F 01 03 07 53 10 03",
            "10 06 10 02 84 00 00 01 1F 01 03 00 08 50 10 03"},
        {"a take on a low destination", "10 02 82 00 00 00 01 01 03 07 72 10 03",
            "10 06 10 02 04 00 02 01 03 05 F1 10 03"},
        {"the other form of a question", "10 02 01 00 20 1F 04 BC 10 03", "10 15"},
        {"the other form of a take", "10 02 02 00 21 1F 48 05 71 10 03", "10 15"},
        {"a low destination in the other form", askFirst, "10 06 10 02 03 00 00 00 00 05 F8 10 03"},
    };
    RawClient client(router);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        expectAnswer(client, c.sent, c.heard);
    }
    matrix.setRoutes({{.level = 0, .destination = 299, .source = noSource}});
    EXPECT_HEARS(client, hex("10 02 84 00 00 01 2B FF FF 00 08 4A 10 03"));
}

TEST_F(SWP08EmulatorTest, RefusesDamagedFramesAndWhatItDoesNotHave)
{
    matrix.setLocks({{3, somebodyElse}});
    const char* sent[] = {
        "10 02 01 00 00 01 04 FB 10 03", // checksum
        "10 02 01 00 00 01 05 F9 10 03", // count
        "10 02 10 03", // nothing in it
        "10 02 00 00 10 03", // no payload
        "10 02 01 00 20 2C 04 AF 10 03", // destination 300
        "10 02 01 02 00 01 04 F8 10 03", // level 2
        "10 02 01 10 10 00 01 04 EA 10 03", // matrix 1
        "10 02 02 00 02 00 2C 05 CB 10 03", // source 300
        "10 02 02 00 00 03 07 05 EF 10 03", // locked
    };
    RawClient client(router);
    for (const auto* bytes : sent) {
        SCOPED_TRACE(bytes);
        expectAnswer(client, bytes, "10 15");
    }
    EXPECT_EQ(matrix.source(0, 3), 3);
}

TEST_F(SWP08EmulatorTest, AnswersInTheFormAndOrderOfItsQuirks)
{
    matrix.setRoutes({{.level = 0, .destination = 1, .source = noSource}});
    const auto askThree = QByteArray(askFirst) + askSecond + "10 02 01 00 00 02 04 F9 10 03";
    struct Case {
        const char* name;
        SWP08Quirks quirks;
        QByteArray sent;
        const char* heard;
    };
    const Case cases[] = {
        {"connected", {.answerForm = Form::Connected}, askFirst, "10 06 10 02 04 00 00 00 00 05 F7 10 03"},
        {"word dump", {.answerForm = Form::WordDump}, askFirst,
            "10 06 10 02 17 00 01 00 00 00 00 07 E1 10 03"},
        {"unrouted word", {.answerForm = Form::WordDump}, askSecond,
            "10 06 10 02 17 00 01 00 01 03 FF 07 DE 10 03"},
        {"300 sources are too many for bytes", {.answerForm = Form::ByteDump}, askFirst,
            "10 06 10 02 17 00 01 00 00 00 00 07 E1 10 03"},
        {"unrouted", {}, askSecond, "10 06 10 02 03 00 07 01 7F 05 71 10 03"},
        {"unrouted is not told", {.omitUnrouted = true}, askSecond, "10 06"},
        {"acknowledged last", {.acknowledgeLast = true}, askFirst, "10 02 03 00 00 00 00 05 F8 10 03 10 06"},
        {"highest first", {.answerTogether = true, .highestFirst = true, .omitUnrouted = true}, askThree,
            "10 06 10 06 10 06 10 02 03 00 00 02 02 05 F4 10 03 10 02 03 00 00 00 00 05 F8 10 03"},
        {"groups with gaps",
            {.answerForm = Form::WordDump,
                .acknowledgeLast = true,
                .answerTogether = true,
                .omitUnrouted = true},
            askThree,
            "10 02 17 00 01 00 00 00 00 07 E1 10 03 10 02 17 00 01 00 02 00 02 07 DD 10 03"
            "10 06 10 06 10 06"},
        {"extras", {.extraMessages = true, .phantomPorts = true}, askFirst,
            "10 06 10 02 03 00 00 00 00 05 F8 10 03 10 02 03 00 77 68 68 05 B1 10 03 10 02 08 01 F7 10 03"
            "10 02 0B 00 00 00 03 05 06 E7 10 03 10 02 7B 00 10 10 03 72 10 03"
            "10 02 83 00 00 00 00 00 00 00 08 75 10 03"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        router.quirks() = c.quirks;
        RawClient client(router);
        expectAnswer(client, c.sent, c.heard);
    }
}

TEST_F(SWP08EmulatorTest, RepeatsWhatIsRefusedFiveTimesAndThenGoesOn)
{
    router.quirks().badChecksums = 1;
    RawClient client(router);
    expectAnswer(client, askFirst, "10 06 10 02 03 00 00 00 00 05 F9 10 03");
    for (int repeat = 1; repeat <= 5; ++repeat)
        expectAnswer(client, "10 15", "10 02 03 00 00 00 00 05 F8 10 03");
    expectAnswer(client, "10 15", "");
    expectAnswer(client, "10 06 10 15", "");
}

TEST_F(SWP08EmulatorTest, TellsEveryClientOfEveryChange)
{
    RawClient one(router);
    RawClient other(router);
    ASSERT_TRUE(pumpUntil([&] { return router.clientCount() == 2; }));
    expectAnswer(one, takeSecondToFirst, "10 06 10 02 04 00 00 00 01 05 F6 10 03");
    matrix.setRoutes({{.level = 1, .destination = 0, .source = noSource}});
    router.tellAll(hex("08"));
    matrix.replace(MatrixState::ofSize(2, 2));
    EXPECT_HEARS(other,
        hex("10 02 04 00 00 00 01 05 F6 10 03 10 02 04 01 07 00 7F 05 70 10 03 10 02 08 01 F7 10 03"
            "10 02 04 00 00 00 00 05 F7 10 03 10 02 04 00 00 01 01 05 F5 10 03"));
    router.dropClients(EmulatorServer::Drop::InMidMessage);
    EXPECT_HEARS(other, hex("10 02 04 00 00 00 01 05 F6 10"));
}

} // namespace
