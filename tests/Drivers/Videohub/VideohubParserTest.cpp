#include "Drivers/Videohub/VideohubParser.h"
#include "Drivers/ParserHarness.h"

namespace corvane {

namespace {

const std::string refusal = "refused The router refused the last command.";
const std::string device =
    "VIDEOHUB DEVICE:\nModel name: Hub 2x2\nFriendly name: Main\nVideo inputs: 2\nVideo outputs: 2\n\n";
const std::string routing = "VIDEO OUTPUT ROUTING:\n0 1\n1 0\n\n";
const std::string end = "END PRELUDE:\n\n";
const std::string connected =
    "connected blackmagicVideohub \"Main\" \"Hub 2x2\" [In 1|In 2] [Out 1|Out 2] routes 0=1 1=0";

/// A parser whose clock the test moves, and what it had to say.
struct Hub : ParserHarness<VideohubParser> {
    Hub() : ParserHarness(u"Saved name"_s)
    {
        parser.onSend([this](const QByteArray& bytes) { queries.push_back(bytes.toStdString()); });
    }

    Texts queries;
};

struct ConnectedHub : Hub {
    ConnectedHub() { EXPECT_THAT(hear(device + routing + end), ElementsAre(connected)); }
};

TEST(VideohubParser, GathersTheGreetingIntoOneState)
{
    Hub hub;
    EXPECT_THAT(
        hub.hear("PROTOCOL PREAMBLE:\nVersion: 2.7\n\n"
                 "VIDEOHUB DEVICE:\nDevice present: true\nModel name: Smart Hub\nFriendly name: Studio A\n"
                 "Unique ID: 7C2E\nVideo inputs: 3\nVideo processing units: 0\nVideo outputs: 2\n\n"
                 "INPUT LABELS:\n0 Cam 1\n2 \n\n"
                 "OUTPUT LABELS:\n1 Monitor: left\n\n"
                 "VIDEO OUTPUT LOCKS:\n0 U\n1 L\n\n"
                 "NETWORK:\n0 9\n\n"
                 "VIDEO OUTPUT ROUTING:\n0 2\n1 0\n\n"),
        IsEmpty());
    EXPECT_THAT(hub.hear(end),
        ElementsAre("connected blackmagicVideohub \"Studio A\" \"Smart Hub\" [Cam 1|In 2|] [Out 1|Monitor: "
                    "left] routes 0=2 1=0 "
                    "locked 1"));
}

TEST(VideohubParser, SaysTheSameHoweverTheStreamIsCut)
{
    const std::string stream = device + "\n\n" + routing + "VIDEO OUTPUT LOCKS:\n1 O\n\n" + end + "\n"
        + "INPUT LABELS:\n1 K\xc3\xb6ln\n\nACK\n\nNAK\n\nVIDEO OUTPUT ROUTING:\n1 1\n0 0\n\n\n\n";
    const Texts expected{
        connected + " locked 1", "label source 1 Köln", refusal, "route 0:1=1", "route 0:0=0"};
    for (const auto& text : {stream, withLineEnds(stream, "\r\n")}) {
        forEachCut(text, [&](const Texts& pieces) {
            Hub hub;
            hub.hearAll(pieces);
            EXPECT_EQ(hub.log.all(), expected);
        });
    }
}

TEST(VideohubParser, ReadsEachLineOfABlockOnItsOwn)
{
    struct Case {
        const char* name;
        std::string block;
        Texts events;
    };
    const Case cases[] = {
        {"an unchanged route", "VIDEO OUTPUT ROUTING:\n0 1", {"route 0:0=1"}},
        {"any case and blanks in the header", " \tVideo output ROUTING: \n1 1", {"route 0:1=1"}},
        {"leading blanks", "VIDEO OUTPUT ROUTING:\n   1 1", {"route 0:1=1"}},
        {"signs", "VIDEO OUTPUT ROUTING:\n+1 -1", {"route 0:1=-1"}},
        {"a source of any number", "VIDEO OUTPUT ROUTING:\n1 9223372036854775807",
            {"route 0:1=9223372036854775807"}},
        {"the last port and the one beyond", "VIDEO OUTPUT ROUTING:\n2 0\n1 0\n-1 0", {"route 0:1=0"}},
        {"labels of ports that are not there", "INPUT LABELS:\n2 A\n-1 B\n1 C", {"label source 1 C"}},
        {"locks of ports that are not there", "VIDEO OUTPUT LOCKS:\n2 L\n-1 L\n1 L", {"lock 1"}},
        {"bad lines among good ones",
            "VIDEO OUTPUT ROUTING:\n1\n1 \n1  0\n1 0 \n1\t0\nx 0\n1 x\n1 0 0\n1 9223372036854775808\n0 0",
            {"route 0:0=0"}},
        {"the routing header of old firmware", "VIDEOHUB OUTPUT ROUTING:\n0 0", {}},
        {"a header without its colon", "VIDEO OUTPUT ROUTING\n0 0", {}},
        {"a block of no meaning here", "SERIAL PORT ROUTING:\n0 0", {}},
        {"an empty block", "VIDEO OUTPUT ROUTING:", {}},
        {"labels with blanks and colons", "INPUT LABELS:\n0 A: b  c \n1  D",
            {"label source 0 A: b  c ", "label source 1  D"}},
        {"labels that are empty or numbers", "OUTPUT LABELS:\n0\n1 \n1 3",
            {"label destination 0 ", "label destination 1 ", "label destination 1 3"}},
        {"labels of any script", "INPUT LABELS:\n0 \xf0\x9f\x8e\xa5 カメラ", {"label source 0 🎥 カメラ"}},
        {"labels that are not UTF-8", "INPUT LABELS:\n0 K\xf6ln", {"label source 0 K\ufffdln"}},
        {"labels without a number", "INPUT LABELS:\nCam 1\n: 2", {}},
        {"every letter but U is a lock",
            "VIDEO OUTPUT LOCKS:\n0 U\n0 O\n0 L\n0 F\n0 u\n0 \n0\n0  U\n0 Unlocked",
            {"unlock 0", "lock 0", "lock 0", "lock 0", "lock 0", "unlock 0", "unlock 0", "lock 0",
                "unlock 0"}},
        {"device data", "VIDEOHUB DEVICE:\nVideo inputs: 9\nFriendly name: Other", {}},
        {"an acknowledgement", "ACK", {}},
        {"an acknowledgement with a body", "ack\nVIDEO OUTPUT ROUTING:\n0 0", {}},
        {"a refusal", "Nak", {refusal}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ConnectedHub hub;
        EXPECT_EQ(hub.hear(c.block + "\n\n"), c.events);
    }
}

TEST(VideohubParser, ReadsWhatTheDeviceTellsOfItself)
{
    struct Case {
        const char* name;
        std::string lines;
        std::string beginning;
    };
    const Case cases[] = {
        {"nothing but its size", "", R"("Saved name" "Blackmagic Videohub" [In 1])"},
        {"keys in any case", "MODEL NAME: A\nfriendly name:B", R"("B" "A" [In 1])"},
        {"blanks around key and value", "\t Model name : \tA ", R"("Saved name" "A" [In 1])"},
        {"colons in the value", "Model name: A: B:", R"("Saved name" "A: B:" [In 1])"},
        {"colons before the key", "::Model name: A", R"("Saved name" "A" [In 1])"},
        {"a key without a value changes nothing", "Model name: A\nModel name:", R"("Saved name" "A" [In 1])"},
        {"a blank value is one",
            "Model name: A\nModel name: ", R"("Saved name" "Blackmagic Videohub" [In 1])"},
        {"the last count holds", "Video inputs: 7\nVideo inputs: +2",
            R"("Saved name" "Blackmagic Videohub" [In 1|In 2])"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Hub hub;
        const auto events = hub.hear(
            "VIDEOHUB DEVICE:\nVideo inputs: 1\nVideo outputs: 1\n" + c.lines + "\n\n" + routing + end);
        EXPECT_THAT(
            events, ElementsAre("connected blackmagicVideohub " + c.beginning + " [Out 1] routes 0=1"));
    }
}

TEST(VideohubParser, DoesNotBelieveASizeThatNoMatrixHas)
{
    for (const auto* const count : {"0", "-1", "65537", "999999999", "99999999999999999999",
             "-9223372036854775808", "", "2x", "0x2", "2.0", "two"}) {
        SCOPED_TRACE(count);
        Hub hub;
        hub.hear("VIDEOHUB DEVICE:\nVideo inputs: 2\nVideo outputs: 2\nVideo inputs: " + std::string(count)
            + "\n\n");
        EXPECT_THAT(hub.hear(routing + end), IsEmpty());
        EXPECT_THAT(hub.hear(device + end), ElementsAre(connected));
    }
    Hub hub;
    const auto events =
        hub.hear("VIDEOHUB DEVICE:\nVideo inputs: 1\nVideo outputs: 65536\n\n" + routing + end);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_THAT(events.front(), testing::HasSubstr("|Out 65536] "));
}

TEST(VideohubParser, TakesTheLaterWordForAPortThatCameBeforeItsTurn)
{
    Hub hub;
    EXPECT_THAT(hub.hear(device + "INPUT LABELS:\n1 Early\n0 First\n1 Late\n\n"
                    + "VIDEO OUTPUT LOCKS:\n1 O\n0 L\n1 U\n\n" + routing + end),
        ElementsAre("connected blackmagicVideohub \"Main\" \"Hub 2x2\" [First|Late] [Out 1|Out 2] routes 0=1 "
                    "1=0 locked 0"));
}

TEST(VideohubParser, ForgetsWhatItWasToldOfPortsThatAreNotThere)
{
    Hub hub;
    EXPECT_THAT(hub.hear("INPUT LABELS:\n2 A\n65535 B\n65536 C\n-1 D\n\n"
                         "VIDEO OUTPUT LOCKS:\n1 L\n2 L\n-1 L\n\n"
                         "VIDEO OUTPUT ROUTING:\n0 1\n1 0\n2 0\n-1 0\n9223372036854775807 0\n\n"
                    + device + end),
        ElementsAre(connected + " locked 1"));
    EXPECT_EQ(hub.parser.lockLetter(2), 'U');
}

TEST(VideohubParser, TakesSilenceForTheEndOfTheGreeting)
{
    Hub hub;
    hub.hear(device);
    EXPECT_THAT(hub.wait(1199ms), IsEmpty());
    hub.hear(routing);
    EXPECT_THAT(hub.wait(1199ms), IsEmpty());
    hub.hear("NETWORK:\n\n");
    // None of these is a part of the state.
    EXPECT_THAT(hub.wait(1000ms), IsEmpty());
    EXPECT_THAT(hub.hear("ACK\n\nNAK\n\n\n\nVIDEO OUTPUT"), ElementsAre(refusal));
    EXPECT_THAT(hub.wait(199ms), IsEmpty());
    EXPECT_THAT(hub.wait(1ms), ElementsAre(connected));
    EXPECT_THAT(hub.wait(1h), IsEmpty());
}

TEST(VideohubParser, ConnectsToARouterThatNeverFallsSilentFiveSecondsAfterItsStateWasWhole)
{
    Hub hub;
    for (int i = 0; i < 10; ++i) {
        hub.hear(device);
        EXPECT_THAT(hub.wait(900ms), IsEmpty());
    }
    for (int i = 0; i < 5; ++i) {
        hub.hear(routing);
        EXPECT_THAT(hub.wait(900ms), IsEmpty());
    }
    hub.hear(routing);
    EXPECT_THAT(hub.wait(499ms), IsEmpty());
    EXPECT_THAT(hub.wait(1ms), ElementsAre(connected));
}

TEST(VideohubParser, WaitsOnAfterAnEndThatCameTooSoon)
{
    Hub hub;
    EXPECT_THAT(hub.hear(device + end), IsEmpty());
    EXPECT_THAT(hub.wait(1h), IsEmpty());
    EXPECT_THAT(hub.hear(routing), IsEmpty());
    EXPECT_THAT(hub.wait(1200ms), ElementsAre(connected));
}

TEST(VideohubParser, NeverConnectsWithoutASizeAndARoute)
{
    for (const auto& greeting :
        {routing, device, device + "VIDEO OUTPUT ROUTING:\n\n", device + "VIDEOHUB OUTPUT ROUTING:\n0 1\n\n",
            "VIDEOHUB DEVICE:\nVideo outputs: 2\n\n" + routing}) {
        Hub hub;
        EXPECT_THAT(hub.hear(greeting + end), IsEmpty());
        EXPECT_THAT(hub.wait(1h), IsEmpty());
    }
}

TEST(VideohubParser, ConnectsOnceAndTakesASecondGreetingForNews)
{
    ConnectedHub hub;
    EXPECT_THAT(hub.hear(device + routing + end), ElementsAre("route 0:0=1", "route 0:1=0"));
    EXPECT_THAT(hub.wait(1h), IsEmpty());
}

TEST(VideohubParser, ReadsTheMatrixAgainAfterARefusalButNotMoreThanOnceInTwoSeconds)
{
    ConnectedHub hub;
    EXPECT_THAT(hub.hear("NAK\n\nNAK\n\n"), ElementsAre(refusal, refusal));
    EXPECT_THAT(hub.queries, ElementsAre("VIDEO OUTPUT ROUTING:\n\n"));
    hub.wait(1999ms);
    hub.hear("NAK\n\nVIDEO OUTPUT LOCKS:\n\n");
    EXPECT_EQ(hub.queries.size(), 1U);
    hub.wait(1ms);
    hub.parser.requestResync();
    EXPECT_THAT(hub.queries,
        ElementsAre("VIDEO OUTPUT ROUTING:\n\n", "VIDEO OUTPUT ROUTING:\n\nVIDEO OUTPUT LOCKS:\n\n"));
}

} // namespace

} // namespace corvane
