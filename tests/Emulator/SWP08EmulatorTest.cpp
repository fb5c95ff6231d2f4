#include "RawClient.h"

#include "emulator/SWP08Emulator.h"

#include <gmock/gmock.h>

using namespace corvane;
using namespace corvane::emulator;
using testing::ElementsAre;

namespace {

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

class SWP08EmulatorTest : public testing::Test {
protected:
    static void expectAnswer(RawClient& client, const QByteArray& sent, const QByteArray& heard)
    {
        emulator::expectAnswer(client, QByteArray::fromHex(sent), QByteArray::fromHex(heard));
    }

    void waitForClients(int count)
    {
        ASSERT_TRUE(pumpUntil([&] { return router.clientCount() == count; }));
    }

    EmulatedMatrix matrix{300, 300, 2};
    SWP08Emulator router{matrix};
};

constexpr auto askFirst = "10 02 01 00 00 00 04 FB 10 03";
constexpr auto firstOnFirst = "10 02 03 00 00 00 00 05 F8 10 03";
constexpr auto askSecond = "10 02 01 00 00 01 04 FA 10 03";
constexpr auto takeSecondToFirst = "10 02 02 00 00 00 01 05 F8 10 03";
constexpr auto firstNowOnSecond = "10 02 04 00 00 00 01 05 F6 10 03";

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

TEST_F(SWP08EmulatorTest, TellsEveryClientOfEveryChange)
{
    RawClient one(router);
    RawClient other(router);
    waitForClients(2);
    expectAnswer(one, takeSecondToFirst, "10 06 10 02 04 00 00 00 01 05 F6 10 03");
    EXPECT_HEARS(other, hex(firstNowOnSecond));

    matrix.setRoutes({{.level = 1, .destination = 0, .source = noSource}});
    EXPECT_HEARS(other, hex("10 02 04 01 07 00 7F 05 70 10 03"));
    EXPECT_THAT(router.receivedMessages(), ElementsAre(hex("02 00 00 00 01")));
}

TEST_F(SWP08EmulatorTest, AnswersInTheFormAndOrderOfItsQuirks)
{
    matrix.setRoutes({{.level = 0, .destination = 1, .source = noSource}});
    const auto askThree = QByteArray(askFirst) + askSecond + "10 02 01 00 00 02 04 F9 10 03";
    using Form = SWP08Quirks::Form;
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
            "10 02 83 00 00 00 01 00 02 00 08 72 10 03"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        router.quirks() = c.quirks;
        RawClient client(router);
        expectAnswer(client, c.sent, c.heard);
    }
}

TEST_F(SWP08EmulatorTest, DumpsALevelInBytesWhereTheyHoldIt)
{
    EmulatedMatrix small(12, 12);
    SWP08Emulator smallRouter(small);
    RawClient client(smallRouter);
    // Twelve destinations make a payload of 16 bytes: the count is 10h, and doubled.
    expectAnswer(client, "10 02 15 00 02 E9 10 03",
        "10 06 10 02 16 00 0C 00 00 01 02 03 04 05 06 07 08 09 0A 0B 10 10 8C 10 03");
}

TEST_F(SWP08EmulatorTest, SaysAllAnswersOfOnePacketInOnePacket)
{
    router.quirks().answerTogether = true;
    RawClient client(router);
    client.send(hex(askFirst) + hex(askFirst));
    EXPECT_HEARS(client, hex("10 06 10 06") + hex(firstOnFirst) + hex(firstOnFirst));
    EXPECT_EQ(client.deliveries(), 1);
}

TEST_F(SWP08EmulatorTest, RepeatsWhatIsRefusedFiveTimesAndThenGoesOn)
{
    router.quirks().badChecksums = 1;
    RawClient client(router);
    expectAnswer(client, askFirst, "10 06 10 02 03 00 00 00 00 05 F9 10 03");
    for (int repeat = 1; repeat <= 5; ++repeat)
        expectAnswer(client, "10 15", firstOnFirst);
    expectAnswer(client, "10 15", "");
    expectAnswer(client, askFirst, "10 06 10 02 03 00 00 00 00 05 F8 10 03");
    expectAnswer(client, "10 06 10 15", "");
    EXPECT_EQ(router.acknowledgements(), 1);
    EXPECT_EQ(router.refusals(), 7);
}

TEST_F(SWP08EmulatorTest, RefusesAsManyTakesAsToldAndAnswersQuestionsMeanwhile)
{
    router.faults().refuseNext = 1;
    RawClient client(router);
    expectAnswer(client, askFirst, "10 06 10 02 03 00 00 00 00 05 F8 10 03");
    expectAnswer(client, takeSecondToFirst, "10 15");
    router.faults().acknowledgeOnly = true;
    expectAnswer(client, takeSecondToFirst, "10 06");
    EXPECT_EQ(matrix.source(0, 0), 0);
}

TEST_F(SWP08EmulatorTest, ReadsAndWritesFramesCutAtEveryByte)
{
    router.faults().pieceSize = 1;
    RawClient client(router);
    const auto take = hex("10 02 02 00 00 10 10 10 10 05 D9 10 03");
    for (const char byte : take) {
        client.send(QByteArray(1, byte));
        pumpUntilIdle();
    }
    EXPECT_HEARS(client, hex("10 06 10 02 04 00 00 10 10 10 10 05 D7 10 03"));
    EXPECT_GT(client.deliveries(), 10);
}

TEST_F(SWP08EmulatorTest, TellsAnythingItIsGivenAndAllOfASwappedFrame)
{
    RawClient client(router);
    waitForClients(1);
    router.tellAll(hex("08"));
    EXPECT_HEARS(client, hex("10 02 08 01 F7 10 03"));
    matrix.replace(MatrixState::ofSize(2, 2));
    EXPECT_HEARS(client, hex("10 02 04 00 00 00 00 05 F7 10 03 10 02 04 00 00 01 01 05 F5 10 03"));
    router.dropClients(EmulatorServer::Drop::InMidMessage);
    EXPECT_HEARS(client, hex("10 02 04 00 00 00 01 05 F6 10"));
}

} // namespace
