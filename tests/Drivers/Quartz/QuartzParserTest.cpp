#include "Drivers/Quartz/QuartzParser.h"
#include "Drivers/ParserHarness.h"

#include <limits>

namespace corvane {

namespace {

const std::string refusal = "refused The router refused the command.";
const std::string beyond = "refused The device reports ports beyond the configured 4×3 — increase the matrix"
                           " size in this router's settings.";
const std::string connected =
    "connected evertzQuartz \"Studio\" \"Quartz 4×3\" [In 1|In 2|In 3|In 4] [Out 1|Out 2|Out 3] routes";

struct Router : InterrogatingParserHarness<QuartzParser> {
    Router() : InterrogatingParserHarness(studio(4, 3)) { }
};

struct ConnectedRouter : Router {
    ConnectedRouter()
    {
        hear(".AV1,1\r.AV2,2\r.AV3,3\r");
        EXPECT_THAT(wait(1s), ElementsAre(connected + " 0=0 1=1 2=2"));
    }
};

TEST(QuartzParser, ReadsEachLineOnItsOwn)
{
    struct Case {
        const char* name;
        std::string line;
        Texts events;
    };
    const Case cases[] = {
        {"answer", ".AV3,1", {"route 0:2=0"}},
        {"update", ".UV3,1", {"route 0:2=0"}},
        {"no news", ".UV3,3", {}},
        {"another level", ".AX3,1", {"route 0:2=0"}},
        {"many levels", ".UABCDEFGHIJKLMNOPQZ3,1", {"route 0:2=0"}},
        {"small letters", ".Uavz3,1", {"route 0:2=0"}},
        {"letters of another script", ".AVÄж3,1", {"route 0:2=0"}},
        {"no level", ".A3,1", {}},
        {"no letters but something else",
            ".A\xff"
            "3,1",
            {}},
        {"something else behind the letters",
            ".AV\xff"
            "3,1",
            {}},
        {"blanks around it", " \t.AV3,1\t ", {"route 0:2=0"}},
        {"blanks around the numbers", ".AV 3\t, \t1", {"route 0:2=0"}},
        {"a blank before the level", ".A V3,1", {}},
        {"padded", ".AV003,001", {"route 0:2=0"}},
        {"signs", ".AV+3,+1", {"route 0:2=0"}},
        {"empty pieces", ".AV,,3,,1,", {"route 0:2=0"}},
        {"a blank piece", ".AV3, ,1", {}},
        {"three numbers", ".AV3,1,1", {}},
        {"one number", ".AV3", {}},
        {"no number", ".AV", {}},
        {"commas alone", ".AV,,", {}},
        {"zero", ".AV0,1", {}},
        {"source zero", ".AV3,0", {}},
        {"negative", ".AV-3,1", {}},
        {"not a number", ".AV3,1x", {}},
        {"a number too many for 64 bits", ".AV9223372036854775808,1", {}},
        {"a number that just fits", ".AV9223372036854775807,9223372036854775807", {beyond}},
        {"the last ports", ".AV3,4", {"route 0:2=3"}},
        {"a destination too many", ".AV4,4", {beyond}},
        {"a source too many", ".AV3,5", {beyond}},
        {"small verbs", ".av3,1", {}},
        {"another verb", ".BV3,1", {}},
        {"a bare acknowledgement", ".A", {}},
        {"a restart", ".P", {}},
        {"another client's take", ".SV3,1", {}},
        {"another client's question", ".IV3", {}},
        {"no verb", "V3,1", {}},
        {"a full stop", ".", {}},
        {"nothing", "", {}},
        {"blanks", " \t ", {}},
        {"a refusal", "?", {refusal}},
        {"another refusal", ".E", {refusal}},
        {"with words", ".E 3", {refusal}},
        {"small letters", ".e", {}},
        {"a refusal with words", " ? what", {refusal}},
        {"a question mark elsewhere", ".?", {}},
        {"a null byte", std::string(".AV3\0,1", 7), {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ConnectedRouter router;
        EXPECT_EQ(router.hear(c.line + "\r"), c.events);
        EXPECT_EQ(router.takeSent(), "");
    }
}

TEST(QuartzParser, SaysTheSameHoweverTheStreamIsCut)
{
    const std::string lines = "\n.AV3,1\n\n.P\n?\n.UVAB2,4\n.UV2,4\n?\n.UX1,3\n";
    const Texts expected{
        connected + " 0=0 1=1 2=2", "route 0:2=0", refusal, "route 0:1=3", refusal, "route 0:0=2"};
    for (const std::string end : {"\n", "\r", "\r\n"}) {
        forEachCut(withLineEnds(lines, end), [&](const Texts& pieces) {
            ConnectedRouter router;
            (void)router.parser.commandFor({0, 2, 1});
            (void)router.parser.commandFor({0, 0, 1});
            router.hearAll(pieces);
            EXPECT_EQ(router.log.all(), expected);
            EXPECT_EQ(router.takeSent(), ".IV1\r");
        });
    }
}

TEST(QuartzParser, DoesNotTakeABadAnswerForTheProtocol)
{
    Router router;
    router.parser.begin();
    EXPECT_THAT(router.hear(".AV0,1\r.AV3,0\r.A3,1\r.AV3\r?\r.P\rlogin: \r"), ElementsAre(refusal));
    EXPECT_THAT(router.wait(5s), ElementsAre(testing::StartsWith("error ")));
}

TEST(QuartzParser, WritesTakesWithPortsFromOne)
{
    ConnectedRouter router;
    EXPECT_EQ(router.parser.commandFor({0, 2, 0}), ".SV3,1\r");
    EXPECT_EQ(router.parser.commandFor({7, 999, 1151}), ".SV1000,1152\r");
}

TEST(QuartzParser, StopsAtTheLastNumberThereIs)
{
    ConnectedRouter router;
    constexpr auto last = std::numeric_limits<qint64>::max();
    EXPECT_EQ(router.parser.commandFor({0, last, last}), ".SV9223372036854775807,9223372036854775807\r");
    router.hear("?\r");
    EXPECT_EQ(router.takeSent(), ".IV9223372036854775807\r");
}

TEST(QuartzParser, ReadsTheDestinationAgainWhoseTakeWasRefused)
{
    struct Case {
        const char* name;
        QList<qint64> taken;
        std::string heard;
        std::string sent;
    };
    const Case cases[] = {
        {"in the order of the takes", {2, 0}, "?\r.E\r?\r", ".IV3\r.IV1\r"},
        {"not one that was answered", {2, 0}, ".AV3,1\r?\r", ".IV1\r"},
        {"nor one that an update told of", {2, 0}, ".UV3,1\r?\r", ".IV1\r"},
        {"nor one that stayed as it was", {2, 0}, ".UV3,3\r?\r", ".IV1\r"},
        {"an answer out of turn clears nothing", {2, 0}, ".UV1,2\r?\r?\r", ".IV3\r.IV1\r"},
        {"one answer clears one take", {2, 2}, ".UV3,1\r?\r", ".IV3\r"},
        {"a source beyond the size is no answer", {2}, ".UV3,5\r?\r", ".IV3\r"},
        {"nor is a line without a level", {2}, ".A3,1\r?\r", ".IV3\r"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ConnectedRouter router;
        for (const auto destination : c.taken)
            (void)router.parser.commandFor({0, destination, 0});
        router.hear(c.heard);
        EXPECT_EQ(router.takeSent(), c.sent);
    }
}

TEST(QuartzParser, AsksAgainForACommandThatWasNotSentAndKeepsItInMind)
{
    ConnectedRouter router;
    (void)router.parser.commandFor({0, 2, 0});
    router.parser.commandNotSent(2);
    EXPECT_EQ(router.takeSent(), ".IV3\r");
    router.hear("?\r");
    EXPECT_EQ(router.takeSent(), ".IV3\r");
}

TEST(QuartzParser, AsksForNoMoreThanARouterCanHave)
{
    constexpr auto most = std::numeric_limits<qint64>::max();
    InterrogatingParserHarness<QuartzParser> router(studio(most, most));
    router.parser.begin();
    EXPECT_EQ(std::ranges::count(router.sent, '\r'), 65536);
    EXPECT_THAT(router.sent, testing::StartsWith(".IV1\r.IV2\r"));
    EXPECT_THAT(router.sent, testing::EndsWith(".IV65536\r"));
    EXPECT_EQ(router.sends, 1);
}

TEST(QuartzParser, BearsFloods)
{
    ConnectedRouter router;
    EXPECT_THAT(router.hear(".A" + std::string(1 << 20, '\xc3') + "\r"), IsEmpty());
    EXPECT_THAT(router.hear(".AV" + std::string(1 << 20, ',') + "3,2\r"), ElementsAre("route 0:2=1"));
    EXPECT_THAT(router.hear(std::string(5 << 20, 'x')),
        ElementsAre("refused The router sent a message without an end; it was left out."));
    EXPECT_THAT(router.hear(std::string(5 << 20, 'x') + "\r.UV3,3\r"), ElementsAre("route 0:2=2"));
}

} // namespace

} // namespace corvane
