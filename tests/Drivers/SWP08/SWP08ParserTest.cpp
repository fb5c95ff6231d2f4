#include "Drivers/SWP08/SWP08Parser.h"
#include "Drivers/ParserHarness.h"

#include <limits>

namespace corvane {

namespace {

const std::string commandRefused = "refused The router refused the command (NAK).";
const std::string routeRefused = "refused The router refused the route (NAK).";

const std::string beyond = "refused The device reports ports beyond the configured 1200×1200 — increase the"
                           " matrix size in this router's settings.";

const std::string ack = "\x10\x06";
const std::string nak = "\x10\x15";

std::string bytes(const std::string& hex)
{
    return QByteArray::fromHex(QByteArray::fromStdString(hex)).toStdString();
}

std::string hex(const std::string& bytes)
{
    return QByteArray::fromStdString(bytes).toHex(' ').toUpper().toStdString();
}

/// What stands between DLE STX and DLE ETX when the payload is sound, DLEs single.
std::string body(std::string payload)
{
    payload += static_cast<char>(payload.size());
    unsigned sum = 0;
    for (const char byte : payload)
        sum += static_cast<quint8>(byte);
    return payload + static_cast<char>(0x100 - sum % 0x100);
}

std::string wire(const std::string& body)
{
    std::string stuffed;
    for (const char byte : body)
        stuffed += byte == 0x10 ? std::string(2, byte) : std::string(1, byte);
    return "\x10\x02" + stuffed + "\x10\x03";
}

/// A sound message with this payload.
std::string message(const std::string& hexPayload)
{
    return wire(body(bytes(hexPayload)));
}

std::string tally(int destination, int source)
{
    const auto low = [](int number) { return static_cast<char>(number % 128); };
    const auto multiplier = static_cast<char>(destination / 128 << 4 | source / 128);
    return wire(body({'\x03', '\0', multiplier, low(destination), low(source)}));
}

struct Router : InterrogatingParserHarness<SWP08Parser> {
    Router() : InterrogatingParserHarness(studio(1200, 1200)) { }
};

struct ConnectedRouter : Router {
    ConnectedRouter()
    {
        hear(message("03 00 00 02 01"));
        EXPECT_EQ(wait(1s).size(), 1U);
        // What was asked for once more.
        for (int destination = 0; destination < 1199; ++destination)
            hear(ack);
        takeSent();
    }
};

TEST(SWP08Parser, WritesQuestionsForEveryDestination)
{
    struct Case {
        qint64 destination;
        std::string sent;
    };
    const Case cases[] = {
        {15, "10 02 01 00 00 0F 04 EC 10 03"},
        {16, "10 02 01 00 00 10 10 04 EB 10 03"},
        {17, "10 02 01 00 00 11 04 EA 10 03"},
        {127, "10 02 01 00 00 7F 04 7C 10 03"},
        {128, "10 02 01 00 10 10 00 04 EB 10 03"},
        {144, "10 02 01 00 10 10 10 10 04 DB 10 03"},
        {1019, "10 02 01 00 70 7B 04 10 10 10 03"},
        {1023, "10 02 01 00 70 7F 04 0C 10 03"},
        {1024, "10 02 01 00 80 00 04 7B 10 03"},
        {2047, "10 02 01 00 F0 7F 04 8C 10 03"},
    };
    Router router;
    for (const auto& c : cases) {
        router.parser.commandNotSent(c.destination);
        EXPECT_EQ(hex(router.takeSent()), c.sent) << c.destination;
    }
}

TEST(SWP08Parser, WritesConnectsForEveryPortAndLevel)
{
    struct Case {
        Route route;
        std::string sent;
    };
    const Case cases[] = {
        {{0, 0, 1}, "10 02 02 00 00 00 01 05 F8 10 03"},
        {{3, 2, 1}, "10 02 02 03 00 02 01 05 F3 10 03"},
        {{16, 2, 1}, "10 02 02 00 00 02 01 05 F6 10 03"},
        {{0, 16, 4}, "10 02 02 00 00 10 10 04 05 E5 10 03"},
        {{0, 17, 16}, "10 02 02 00 00 11 10 10 05 D8 10 03"},
        {{0, 16, 16}, "10 02 02 00 00 10 10 10 10 05 D9 10 03"},
        {{0, 116, 117}, "10 02 02 00 00 74 75 05 10 10 10 03"},
        {{0, 128, 0}, "10 02 02 00 10 10 00 00 05 E9 10 03"},
        {{0, 287, 200}, "10 02 02 00 21 1F 48 05 71 10 03"},
        {{0, 1023, 1023}, "10 02 02 00 77 7F 7F 05 84 10 03"},
        {{0, 2047, 2047}, "10 02 02 00 FF 7F 7F 05 FC 10 03"},
    };
    Router router;
    for (const auto& c : cases)
        EXPECT_EQ(hex(router.parser.commandFor(c.route).toStdString()), c.sent);
    EXPECT_EQ(router.takeSent(), "");
}

TEST(SWP08Parser, AnswersEveryFrameAndReadsReports)
{
    struct Case {
        const char* name;
        std::string heard;
        Texts events;
        std::string answer;
    };
    const Case cases[] = {
        {"tally", message("03 00 00 02 05"), {"route 0:2=5"}, ack},
        {"connected", message("04 00 00 02 05"), {"route 0:2=5"}, ack},
        {"no news", message("04 00 00 02 01"), {}, ack},
        {"another level", message("03 0F 00 02 05"), {"route 15:2=5"}, ack},
        {"another matrix", message("03 10 00 02 05"), {"route 0:2=5"}, ack},
        {"a source in poor health", message("03 00 08 02 05"), {"route 0:2=5"}, ack},
        {"the highest bit", message("03 00 80 02 05"), {"route 0:2=5"}, ack},
        {"multipliers", message("03 00 21 1F 48"), {"route 0:287=200"}, ack},
        {"the last ports", message("03 00 77 7F 7F"), {"route 0:1023=1023"}, ack},
        {"more than seven bits", message("03 00 00 FF FE"), {"route 0:255=254"}, ack},
        {"more than seven bits behind a multiplier", message("03 00 70 FF 00") + message("03 00 70 FF FF"),
            {"route 0:1151=0", "route 0:1151=255"}, ack + ack},
        {"destination 16", message("03 00 00 10 04"), {"route 0:16=4"}, ack},
        {"destination 17", message("03 00 00 11 04"), {"route 0:17=4"}, ack},
        {"source 16", message("03 00 00 02 10"), {"route 0:2=16"}, ack},
        {"both 16", message("03 00 00 10 10"), {"route 0:16=16"}, ack},
        {"multiplier 10h", message("03 00 10 00 04"), {"route 0:128=4"}, ack},
        {"everything 10h", message("04 10 10 10 10"), {"route 0:144=16"}, ack},
        {"checksum 10h", bytes("10 02 03 00 00 74 74 05 10 10 10 03"), {"route 0:116=116"}, ack},
        {"count 10h", message("03 00 00 02 05 06 07 08 09 0A 0B 0C 0D 0E 0F 11"), {"route 0:2=5"}, ack},
        {"the longest", message("03 00 00 02 05" + std::string(500, '0')), {"route 0:2=5"}, ack},
        {"a report too short", message("03 00 00 02"), {}, ack},
        {"a payload of one byte", message("08"), {}, ack},
        {"another message", message("0B 00 00 00 03 05"), {}, ack},
        {"an extended tally", message("83 00 00 00 02 00 05 00"), {"route 0:2=5"}, ack},
        {"an extended connected message", message("84 00 11 03 F2 04 01 00"), {"route 17:1010=1025"}, ack},
        {"one of another matrix, without a status", message("83 01 00 00 02 00 05"), {"route 0:2=5"}, ack},
        {"one of no source", message("83 00 00 00 02 FF FF 00"), {"route 0:2=none"}, ack},
        {"one of a source too many", message("83 00 00 00 02 FF FE 00"), {beyond}, ack},
        {"one of a destination too many", message("83 00 00 04 B0 00 05 00"), {beyond}, ack},
        {"one of the last ports", message("83 00 00 04 AF 04 AF 00"), {"route 0:1199=1199"}, ack},
        {"one too short", message("83 00 00 00 02 00"), {}, ack},
        {"an extended question", message("81 00 00 00 02 00 05 00"), {}, ack},
        {"a question", message("01 00 00 02"), {}, ack},
        {"wrong checksum", bytes("10 02 03 00 00 02 05 05 F2 10 03"), {}, nak},
        {"wrong count", bytes("10 02 03 00 00 02 05 06 F0 10 03"), {}, nak},
        {"count 10h not doubled", bytes("10 02 03 00 00 10 05 05 E3 10 03"), {}, nak},
        {"empty", bytes("10 02 10 03"), {}, nak},
        {"two bytes", bytes("10 02 00 00 10 03"), {}, nak},
        {"one byte too long", wire(body(std::string(256, '\x03'))), {}, nak},
        {"a byte behind the longest", wire(body(std::string(255, '\x03')) + '\0'), {}, nak},
        {"much too long", wire(std::string(1 << 20, '\0')), {}, nak},
        {"nothing but DLEs", std::string(1 << 20, '\x10'), {}, ""},
        {"begun again", bytes("10 02 03 00 00 10 02 ") + message("03 00 00 02 05").substr(2), {"route 0:2=5"},
            ack},
        {"two in one", message("03 00 00 02 05") + message("03 00 00 02 06"), {"route 0:2=5", "route 0:2=6"},
            ack + ack},
        {"the end of nothing", bytes("10 03 10 03"), {}, ""},
        {"noise outside", bytes("03 00 00 02 05 05 F1 10 10 10 7F 02 03 06 15"), {}, ""},
        {"noise around", bytes("FF 10 FF") + message("03 00 00 02 05") + "\x02\x03", {"route 0:2=5"}, ack},
        {"DLEs before a frame", "\x10\x10\x10\x10" + message("03 00 00 02 05"), {"route 0:2=5"}, ack},
        {"an unknown DLE pair inside", bytes("10 02 03 00 00 10 7F 02 05 05 F1 10 03"), {"route 0:2=5"}, ack},
        {"an acknowledgement", ack, {}, ""},
        {"an acknowledgement inside", bytes("10 02 03 00 00 10 06 02 05 05 F1 10 03"), {"route 0:2=5"}, ack},
        {"a refusal of nothing", nak, {commandRefused}, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ConnectedRouter router;
        EXPECT_EQ(router.hear(c.heard), c.events);
        EXPECT_EQ(hex(router.takeSent()), hex(c.answer));
    }
}

TEST(SWP08Parser, SaysTheSameHoweverTheStreamIsCut)
{
    const auto text = message("03 00 10 10 10") + "x" + ack + message("04 10 00 11 10") + nak + nak
        + message("03 01 77 7F 7F") + bytes("10 02 03 00 10 10 10 03") + message("10 10")
        + bytes("10 02 03 10 02 ") + message("03 00 00 74 74").substr(2) + nak;
    const Texts expected{"route 0:144=16", "route 0:17=16", routeRefused, "route 1:1023=1023",
        "route 0:116=116", commandRefused};
    const auto answers = "10 06 10 06 10 02 01 00 00 07 04 F4 10 03 10 06 10 15 10 06 10 06";
    forEachCut(text, [&](const Texts& pieces) {
        ConnectedRouter router;
        (void)router.parser.commandFor({0, 5, 1});
        (void)router.parser.commandFor({0, 7, 1});
        EXPECT_EQ(router.hearAll(pieces), expected);
        EXPECT_EQ(hex(router.takeSent()), answers);
    });
}

TEST(SWP08Parser, AnswersADeliveryInOnePiece)
{
    ConnectedRouter router;
    router.sends = 0;
    router.hear(message("03 00 00 02 05") + message("08") + wire("x"));
    EXPECT_EQ(hex(router.takeSent()), "10 06 10 06 10 15");
    EXPECT_EQ(router.sends, 1);
    router.hear(ack + "x");
    EXPECT_EQ(router.sends, 1);
}

TEST(SWP08Parser, AsksInTheExtendedFormForWhatGotNoAnswer)
{
    InterrogatingParserHarness<SWP08Parser> router(studio(2, 1026));
    router.parser.begin();
    std::string answers;
    for (int destination = 0; destination < 1024; ++destination) {
        // One shows a source that is not there, and two do not answer.
        if (destination != 16 && destination != 900)
            answers += tally(destination, destination == 3 ? 1023 : 1);
    }
    router.hear(answers + message("83 00 00 04 00 00 01 00"));
    router.takeSent();
    EXPECT_EQ(router.wait(1s).size(), 1U);
    EXPECT_EQ(hex(router.takeSent()),
        "10 02 81 00 00 00 10 10 05 6A 10 03 10 02 81 00 00 03 84 05 F3 10 03 10 02 81 00 00 04 01 05 75 10 "
        "03");
    EXPECT_THAT(router.hear(nak + message("83 00 00 03 84 00 01 00")), ElementsAre("route 0:900=1"));
    EXPECT_THAT(router.wait(1h), IsEmpty());
    EXPECT_EQ(router.takeSent(), ack);
}

TEST(SWP08Parser, SpeaksExtendedOfPortsThatTheRouterReportedInNoOtherForm)
{
    struct Case {
        const char* name;
        std::string heard;
        Route route;
        std::string sent;
        std::string readAgain;
    };
    const auto extended900 = message("83 00 00 03 84 00 01 00");
    const std::string ordinaryQuestion = "10 02 01 00 70 04 04 87 10 03";
    const std::string extendedQuestion = "10 02 81 00 00 03 84 05 F3 10 03";
    const Case cases[] = {
        {"reported in no form", "", {0, 900, 5}, "10 02 02 00 70 04 05 05 80 10 03", ordinaryQuestion},
        {"in the extended form", extended900, {0, 900, 5}, "10 02 82 00 00 03 84 00 05 07 EB 10 03",
            extendedQuestion},
        {"on a level", extended900, {3, 900, 259}, "10 02 82 00 03 03 84 01 03 07 E9 10 03",
            extendedQuestion},
        {"in both", extended900 + message("04 00 70 04 01"), {0, 900, 5}, "10 02 02 00 70 04 05 05 80 10 03",
            ordinaryQuestion},
        {"in both, the other way round", message("04 00 70 04 01") + extended900, {0, 900, 5},
            "10 02 02 00 70 04 05 05 80 10 03", ordinaryQuestion},
        {"another destination in it", extended900, {0, 901, 1}, "10 02 02 00 70 05 01 05 83 10 03",
            "10 02 01 00 70 05 04 86 10 03"},
        {"a source that no other form can tell", message("83 00 00 03 84 04 00 00"), {0, 2, 1024},
            "10 02 82 00 00 00 02 04 00 07 71 10 03", "10 02 01 00 00 02 04 F9 10 03"},
        {"a source that another form could have told", message("83 00 00 03 84 03 FF 00"), {0, 2, 1023},
            "10 02 02 00 07 02 7F 05 71 10 03", "10 02 01 00 00 02 04 F9 10 03"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ConnectedRouter router;
        router.hear(c.heard);
        router.takeSent();
        EXPECT_EQ(hex(router.parser.commandFor(c.route).toStdString()), c.sent);
        router.hear(nak);
        EXPECT_EQ(hex(router.takeSent()), c.readAgain);
    }
}

TEST(SWP08Parser, DoesNotTakeOtherMessagesForAnAnswer)
{
    InterrogatingParserHarness<SWP08Parser> router(studio(2, 3));
    router.parser.begin();
    router.hear(ack + message("08") + message("03 00 00 02") + bytes("10 02 03 00 00 02 05 05 F2 10 03"));
    EXPECT_THAT(router.wait(5s), ElementsAre(testing::StartsWith("error ")));
}

TEST(SWP08Parser, MatchesAnswersToCommandsByTheirOrder)
{
    constexpr auto again5 = "10 02 01 00 00 05 04 F6 10 03";
    constexpr auto again7 = "10 02 01 00 00 07 04 F4 10 03";
    struct Case {
        const char* name;
        std::string heard;
        Texts events;
        std::string sent;
    };
    // The router has been asked for two destinations, then 5 and 7 were routed.
    const Case cases[] = {
        {"refused questions", nak + nak, {}, ""},
        {"a refused route is read again", nak + ack + nak, {routeRefused}, again5},
        {"both refused", ack + nak + nak + nak, {routeRefused, routeRefused},
            again5 + std::string(" ") + again7},
        {"an acknowledged route is done", ack + ack + ack + nak, {routeRefused}, again7},
        {"what was read again may be refused too", ack + ack + nak + ack + nak + nak,
            {routeRefused, commandRefused}, again5},
        {"more acknowledgements than commands", ack + ack + ack + ack + ack + ack + nak, {commandRefused},
            ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        InterrogatingParserHarness<SWP08Parser> router(studio(16, 2));
        router.parser.begin();
        (void)router.parser.commandFor({0, 5, 1});
        (void)router.parser.commandFor({0, 7, 1});
        router.takeSent();
        EXPECT_EQ(router.hear(c.heard), c.events);
        EXPECT_EQ(hex(router.takeSent()), c.sent);
    }
}

TEST(SWP08Parser, ForgetsTheNewestConnectThatWasNotSent)
{
    ConnectedRouter router;
    for (const auto destination : {5, 7, 5, 9})
        (void)router.parser.commandFor({0, destination, 1});
    router.parser.commandNotSent(5);
    EXPECT_EQ(hex(router.takeSent()), "10 02 01 00 00 05 04 F6 10 03");
    // Left are 5, 7, 9 and the question.
    EXPECT_THAT(router.hear(nak + nak + nak + nak), ElementsAre(routeRefused, routeRefused, routeRefused));
    EXPECT_EQ(hex(router.takeSent()),
        "10 02 01 00 00 05 04 F6 10 03 10 02 01 00 00 07 04 F4 10 03 10 02 01 00 00 09 04 F2 10 03");

    router.hear(ack + ack + ack);
    router.parser.commandNotSent(11);
    EXPECT_THAT(router.hear(nak + nak), ElementsAre(commandRefused)) << "there was nothing to forget";
}

TEST(SWP08Parser, AsksForNoMoreThanCanBeAddressed)
{
    constexpr auto most = std::numeric_limits<qint64>::max();
    InterrogatingParserHarness<SWP08Parser> router(studio(most, most));
    router.parser.begin();
    EXPECT_THAT(
        hex(router.sent), testing::StartsWith("10 02 01 00 00 00 04 FB 10 03 10 02 01 00 00 01 04 FA"));
    EXPECT_THAT(hex(router.sent), testing::EndsWith("10 02 01 00 F0 7F 04 8C 10 03"));
    const auto questions = QByteArray::fromStdString(router.sent);
    EXPECT_EQ(questions.count(QByteArrayLiteral("\x10\x02\x01\x00")), 2048);
    EXPECT_EQ(router.sends, 1);
}

} // namespace

} // namespace corvane
