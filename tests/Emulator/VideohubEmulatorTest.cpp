#include "RawClient.h"

#include "emulator/VideohubEmulator.h"

#include <gmock/gmock.h>

using namespace corvane;
using namespace corvane::emulator;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

constexpr auto greetingOf3x2 = "PROTOCOL PREAMBLE:\nVersion: 2.8\n\n"
                               "VIDEOHUB DEVICE:\nDevice present: true\n"
                               "Model name: Blackmagic Smart Videohub 3 x 2\n"
                               "Friendly name: Emulated Videohub\nUnique ID: 7C2E0D0C0A11\n"
                               "Video inputs: 3\nVideo processing units: 0\nVideo outputs: 2\n"
                               "Video monitoring outputs: 0\nSerial ports: 0\n\n"
                               "INPUT LABELS:\n0 Input 1\n1 Input 2\n2 Input 3\n\n"
                               "OUTPUT LABELS:\n0 Output 1\n1 Output 2\n\n"
                               "VIDEO OUTPUT LOCKS:\n0 U\n1 U\n\n"
                               "VIDEO OUTPUT ROUTING:\n0 0\n1 1\n\n"
                               "CONFIGURATION:\nTake Mode: false\n\n"
                               "END PRELUDE:\n\n";

class Client : public RawClient {
public:
    using RawClient::RawClient;

    void skipGreeting() { skipTo("END PRELUDE:\n\n"); }
};

class VideohubEmulatorTest : public testing::Test {
protected:
    EmulatedMatrix matrix{3, 2};
    VideohubEmulator hub{matrix};
};

TEST_F(VideohubEmulatorTest, GreetsWithItsWholeState)
{
    Client client(hub);
    EXPECT_HEARS(client, greetingOf3x2);
}

TEST_F(VideohubEmulatorTest, QuirksChangeWhatTheGreetingHolds)
{
    struct Case {
        const char* name;
        bool VideohubQuirks::*quirk;
        const char* usual;
        const char* quirky;
    };
    const Case cases[] = {
        {"end prelude", &VideohubQuirks::omitEndPrelude, "END PRELUDE:", nullptr},
        {"line ends", &VideohubQuirks::crLfLineEnds, ":\n", "\r\n1 1\r\n\r\n"},
        {"older routing", &VideohubQuirks::olderRoutingHeader,
            "VIDEO OUTPUT ROUTING:", "VIDEOHUB OUTPUT ROUTING:\n0"},
        {"extra blocks", &VideohubQuirks::extraBlocks, nullptr, "ALARM STATUS:\n"},
        {"extra routing", &VideohubQuirks::extraBlocks, nullptr, "SERIAL PORT ROUTING:\n0 1\n"},
        {"no locks", &VideohubQuirks::omitLocks, "VIDEO OUTPUT LOCKS:", nullptr},
        {"no configuration", &VideohubQuirks::omitConfiguration, "CONFIGURATION:", nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        VideohubQuirks quirks;
        quirks.*c.quirk = true;
        const auto greeting = VideohubWriter(matrix, quirks, hub.identity(), 1).greeting();
        EXPECT_FALSE(c.usual && greeting.contains(c.usual));
        EXPECT_TRUE(!c.quirky || greeting.contains(c.quirky));
    }
}

TEST_F(VideohubEmulatorTest, AcknowledgesChangesAndTellsEveryClientOnlyWhatChanged)
{
    struct Case {
        const char* name;
        QByteArray command;
        QByteArray told;
    };
    const Case cases[] = {
        {"take", "VIDEO OUTPUT ROUTING:\n1 2\n\n", "VIDEO OUTPUT ROUTING:\n1 2\n\n"},
        {"one of two new", "VIDEO OUTPUT ROUTING:\n0 1\n1 2\n\n", "VIDEO OUTPUT ROUTING:\n0 1\n\n"},
        {"CR LF", "VIDEO OUTPUT ROUTING:\r\n1 0\r\n\r\n", "VIDEO OUTPUT ROUTING:\n1 0\n\n"},
        {"source label", "INPUT LABELS:\n2 Cam: 3 \n\n", "INPUT LABELS:\n2 Cam: 3 \n\n"},
        {"empty label", "OUTPUT LABELS:\n0 \n\n", "OUTPUT LABELS:\n0 \n\n"},
        {"label, no blank", "OUTPUT LABELS:\n1\n\n", "OUTPUT LABELS:\n1 \n\n"},
    };
    Client one(hub);
    Client other(hub);
    one.skipGreeting();
    other.skipGreeting();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        one.send(c.command);
        EXPECT_HEARS(one, "ACK\n\n" + c.told);
        EXPECT_HEARS(other, c.told);
    }
}

TEST_F(VideohubEmulatorTest, RefusesWhatItCannotDoAndThenDoesNoneOfIt)
{
    const char* commands[] = {
        "VIDEO OUTPUT ROUTING:\n2 0\n\n",
        "VIDEO OUTPUT ROUTING:\n0 3\n\n",
        "VIDEO OUTPUT ROUTING:\n0 -1\n\n",
        "VIDEO OUTPUT ROUTING:\n0\n\n",
        "VIDEO OUTPUT ROUTING:\n0 2\n1 3\n\n",
        "VIDEO OUTPUT ROUTING:\nx 2\n\n",
        "INPUT LABELS:\n3 Too far\n\n",
        "OUTPUT LABELS:\n2 Too far\n\n",
        "VIDEO OUTPUT LOCKS:\n2 F\n\n",
        "VIDEO OUTPUT LOCKS:\n0 X\n\n",
        "VIDEOHUB OUTPUT ROUTING:\n0 2\n\n",
        "COFFEE:\n0 2\n\n",
        "COFFEE:\n\n",
    };
    Client client(hub);
    client.skipGreeting();
    for (const auto* command : commands) {
        SCOPED_TRACE(command);
        client.send(command);
        EXPECT_HEARS(client, "NAK\n\n");
    }
    client.send("VIDEO OUTPUT ROUTING:\n\n");
    EXPECT_HEARS(client, "ACK\n\nVIDEO OUTPUT ROUTING:\n0 0\n1 1\n\n");
}

TEST_F(VideohubEmulatorTest, LocksBelongToTheClientThatSetThem)
{
    Client owner(hub);
    Client other(hub);
    owner.skipGreeting();
    other.skipGreeting();

    owner.send("VIDEO OUTPUT LOCKS:\n1 O\n\n");
    EXPECT_HEARS(owner, "ACK\n\nVIDEO OUTPUT LOCKS:\n1 O\n\n");
    EXPECT_HEARS(other, "VIDEO OUTPUT LOCKS:\n1 L\n\n");

    for (const auto* attempt :
        {"VIDEO OUTPUT ROUTING:\n1 0\n\n", "VIDEO OUTPUT LOCKS:\n1 U\n\n", "VIDEO OUTPUT LOCKS:\n1 O\n\n"}) {
        other.send(attempt);
        EXPECT_HEARS(other, "NAK\n\n");
    }
    owner.send("VIDEO OUTPUT ROUTING:\n1 0\n\n");
    EXPECT_HEARS(owner, "ACK\n\nVIDEO OUTPUT ROUTING:\n1 0\n\n");
    EXPECT_HEARS(other, "VIDEO OUTPUT ROUTING:\n1 0\n\n");

    other.send("VIDEO OUTPUT LOCKS:\n1 F\n\n");
    EXPECT_HEARS(other, "ACK\n\nVIDEO OUTPUT LOCKS:\n1 U\n\n");
    EXPECT_HEARS(owner, "VIDEO OUTPUT LOCKS:\n1 U\n\n");
}

TEST_F(VideohubEmulatorTest, QuirksChangeWhatIsToldOfAChange)
{
    Client client(hub);
    client.skipGreeting();
    hub.quirks().ownLocksLookForeign = true;
    client.send("VIDEO OUTPUT LOCKS:\n1 O\n\n");
    EXPECT_HEARS(client, "ACK\n\nVIDEO OUTPUT LOCKS:\n1 L\n\n");

    hub.quirks().tellWholeTables = true;
    client.send("VIDEO OUTPUT ROUTING:\n1 2\n\n");
    EXPECT_HEARS(client, "ACK\n\nVIDEO OUTPUT ROUTING:\n0 0\n1 2\n\n");

    hub.quirks() = {.crLfLineEnds = true, .omitLocks = true};
    client.send("VIDEO OUTPUT LOCKS:\n1 U\n\n");
    EXPECT_HEARS(client, "NAK\r\n\r\n");

    hub.faults().acknowledgeOnly = true;
    client.send("VIDEO OUTPUT ROUTING:\n1 0\n\n");
    EXPECT_HEARS(client, "ACK\r\n\r\n");
    EXPECT_EQ(matrix.source(0, 1), 2);
}

TEST_F(VideohubEmulatorTest, GreetsAgainWhenTheFrameIsSwapped)
{
    Client client(hub);
    client.skipGreeting();
    matrix.replace(MatrixState::ofSize(1, 1));
    matrix.replace(MatrixState::ofSize(3, 2));
    ASSERT_TRUE(pumpUntil([&] { return client.received().endsWith(greetingOf3x2); }));
    EXPECT_TRUE(client.received().contains("Video inputs: 1\n"));
}

TEST_F(VideohubEmulatorTest, TellsWhatSomebodyElseDid)
{
    Client client(hub);
    client.skipGreeting();
    matrix.setRoutes({{.destination = 0, .source = 2}});
    matrix.setLocks({{0, somebodyElse}});
    matrix.setLabels({{Side::Destination, 1, u"Wand é"_s}});
    EXPECT_HEARS(client,
        "VIDEO OUTPUT ROUTING:\n0 2\n\nVIDEO OUTPUT LOCKS:\n0 L\n\nOUTPUT LABELS:\n1 Wand \xc3\xa9\n\n");
}

TEST_F(VideohubEmulatorTest, ReadsCommandsHoweverTheyAreCut)
{
    const QByteArray commands = "VIDEO OUTPUT ROUTING:\n\n\nVIDEO OUTPUT LOCKS:\n\nINPUT LABELS:\n0 A\n\n";
    Client client(hub);
    client.skipGreeting();
    for (const char byte : commands) {
        client.send(QByteArray(1, byte));
        pumpUntilIdle();
    }
    EXPECT_HEARS(client,
        "ACK\n\nVIDEO OUTPUT ROUTING:\n0 0\n1 1\n\nACK\n\nVIDEO OUTPUT LOCKS:\n0 U\n1 U\n\nACK\n\nINPUT "
        "LABELS:\n0 A\n\n");
    EXPECT_EQ(hub.receivedBytes(), commands);
    EXPECT_THAT(hub.receivedBlocks(),
        ElementsAre("VIDEO OUTPUT ROUTING:", "VIDEO OUTPUT LOCKS:", "INPUT LABELS:\n0 A"));
}

TEST_F(VideohubEmulatorTest, RefusesAsManyCommandsAsToldAndAnswersQuestionsMeanwhile)
{
    hub.faults().refuseNext = 1;
    Client client(hub);
    client.skipGreeting();
    const QByteArray take = "VIDEO OUTPUT ROUTING:\n0 2\n\n";
    client.send("VIDEO OUTPUT LOCKS:\n\n" + take + take);
    EXPECT_HEARS(client, "ACK\n\nVIDEO OUTPUT LOCKS:\n0 U\n1 U\n\nNAK\n\nACK\n\n" + take);
}

TEST_F(VideohubEmulatorTest, SaysTheSameInPiecesOfOneByte)
{
    hub.faults().pieceSize = 1;
    Client client(hub);
    EXPECT_HEARS(client, greetingOf3x2);
    EXPECT_GT(client.deliveries(), 100);
}

TEST_F(VideohubEmulatorTest, KeepsTheOrderWhenADelayEnds)
{
    hub.faults().answerDelay = std::chrono::milliseconds(5);
    Client client(hub);
    ASSERT_TRUE(pumpUntil([&] { return hub.clientCount() == 1; }));
    hub.faults().answerDelay = {};
    matrix.setRoutes({{.destination = 0, .source = 2}});
    EXPECT_HEARS(client, QByteArray(greetingOf3x2) + "VIDEO OUTPUT ROUTING:\n0 2\n\n");
}

TEST_F(VideohubEmulatorTest, ListensInSilence)
{
    hub.faults().silent = true;
    Client client(hub);
    client.send("VIDEO OUTPUT ROUTING:\n0 2\n\n");
    ASSERT_TRUE(pumpUntil([&] { return hub.receivedBlocks().size() == 1; }));
    pumpUntilIdle();
    EXPECT_EQ(client.received(), "");
}

TEST_F(VideohubEmulatorTest, LosesItsClientsWhereToldTo)
{
    Client client(hub);
    client.skipGreeting();
    hub.dropClients(EmulatorServer::Drop::InMidMessage);
    ASSERT_TRUE(pumpUntil([&] { return client.isClosed(); }));
    EXPECT_EQ(client.received(), "VIDEO OUTPUT ROUTING:\n0 1");
    EXPECT_EQ(hub.clientCount(), 0);

    Client second(hub);
    second.skipGreeting();
    hub.dropClients();
    EXPECT_TRUE(pumpUntil([&] { return second.isClosed(); }));

    hub.faults().pieceSize = 10;
    hub.faults().closeAfterBytes = 25;
    Client third(hub);
    ASSERT_TRUE(pumpUntil([&] { return third.isClosed(); }));
    EXPECT_EQ(third.received(), "PROTOCOL PREAMBLE:\nVersio");
}

TEST_F(VideohubEmulatorTest, RefusesConnectionsUntilItListensAgain)
{
    hub.stopListening();
    Client early(hub);
    EXPECT_TRUE(pumpUntil([&] { return early.isRefused(); }));

    ASSERT_TRUE(hub.listenAgain());
    Client late(hub);
    EXPECT_HEARS(late, greetingOf3x2);
}

TEST_F(VideohubEmulatorTest, PlaysACaptureByteForByteAndGoesOnAsThatRouter)
{
    const QByteArray capture = "PROTOCOL PREAMBLE:\r\n  Version: 2.7 \r\n\r\n  VIDEOHUB DEVICE:\r\n"
                               "    Video inputs: 4\r\n Video outputs: 3\r\n\r\n"
                               "  OUTPUT LABELS:\r\n 0 Wall\r\n1\r\n3 Beyond\r\n\r\n"
                               "  VIDEO OUTPUT LOCKS:\r\n0 L\r\n1 U\r\n\r\n"
                               "  VIDEO OUTPUT ROUTING:\r\n0 3\r\n1 -1\r\n2 0";
    ASSERT_TRUE(hub.playCapture(capture));
    Client client(hub);
    EXPECT_HEARS(client, capture);

    client.send(
        "OUTPUT LABELS:\n\nVIDEO OUTPUT LOCKS:\n\nVIDEO OUTPUT ROUTING:\n\nVIDEO OUTPUT ROUTING:\n2 3\n\n");
    EXPECT_HEARS(client,
        "ACK\n\nOUTPUT LABELS:\n0 Wall\n1 \n2 Output 3\n\nACK\n\nVIDEO OUTPUT LOCKS:\n0 L\n1 U\n2 U\n\n"
        "ACK\n\nVIDEO OUTPUT ROUTING:\n0 3\n1 -1\n2 0\n\nACK\n\nVIDEO OUTPUT ROUTING:\n2 3\n\n");
}

TEST_F(VideohubEmulatorTest, PlaysBytesThatTellNoSizeAndStaysWhatItIs)
{
    const QByteArray noise =
        "HTTP/1.1 400 Bad Request\r\n\r\nVIDEOHUB DEVICE:\nVideo inputs: 99999999999\n\n";
    EXPECT_FALSE(hub.playCapture(noise));
    Client client(hub);
    client.send("VIDEO OUTPUT ROUTING:\n\n");
    EXPECT_HEARS(client, noise + "ACK\n\nVIDEO OUTPUT ROUTING:\n0 0\n1 1\n\n");
}

TEST(EmulatedMatrix, ChangesAllThatIsAskedForOrNothing)
{
    EmulatedMatrix matrix(2, 2, 2);
    EXPECT_FALSE(matrix.setRoutes({{0, 0, 1}, {2, 0, 1}}));
    EXPECT_FALSE(matrix.setLabels({{Side::Source, 0, u"A"_s}, {Side::Source, -1, u"B"_s}}));
    EXPECT_FALSE(matrix.setLocks({{0, somebodyElse}, {2, somebodyElse}}));
    EXPECT_EQ(matrix.source(0, 0), 0);
    EXPECT_EQ(matrix.label(Side::Source, 0), u"Input 1"_s);
    EXPECT_EQ(matrix.lockOwner(0), std::nullopt);

    EXPECT_TRUE(matrix.setRoutes({{1, 0, noSource}}));
    EXPECT_EQ(matrix.source(0, 0), 0);
    EXPECT_EQ(matrix.source(1, 0), noSource);
}

} // namespace
