#include "RawClient.h"

#include "emulator/VideohubEmulator.h"

#include <gtest/gtest.h>

using namespace corvane;
using namespace corvane::emulator;
using namespace Qt::StringLiterals;

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

class VideohubEmulatorTest : public testing::Test {
protected:
    EmulatedMatrix matrix{3, 2};
    VideohubEmulator hub{matrix};
};

TEST_F(VideohubEmulatorTest, GreetsAcknowledgesAndTellsEveryClientWhatChanged)
{
    struct Case {
        const char* name;
        QByteArray command;
        QByteArray answer;
        QByteArray told;
    };
    const Case cases[] = {
        {"take", "VIDEO OUTPUT ROUTING:\n1 2\n\n", "ACK\n\n", "VIDEO OUTPUT ROUTING:\n1 2\n\n"},
        {"one of two new", "VIDEO OUTPUT ROUTING:\n0 1\n1 2\n\n", "ACK\n\n",
            "VIDEO OUTPUT ROUTING:\n0 1\n\n"},
        {"CR LF", "VIDEO OUTPUT ROUTING:\r\n1 0\r\n\r\n", "ACK\n\n", "VIDEO OUTPUT ROUTING:\n1 0\n\n"},
        {"source label", "INPUT LABELS:\n2 Cam: 3 \n\n", "ACK\n\n", "INPUT LABELS:\n2 Cam: 3 \n\n"},
        {"empty label", "OUTPUT LABELS:\n0 \n\n", "ACK\n\n", "OUTPUT LABELS:\n0 \n\n"},
        {"label, no blank", "OUTPUT LABELS:\n1\n\n", "ACK\n\n", "OUTPUT LABELS:\n1 \n\n"},
        {"questions", "VIDEO OUTPUT ROUTING:\n\n\nVIDEO OUTPUT LOCKS:\n\n",
            "ACK\n\nVIDEO OUTPUT ROUTING:\n0 1\n1 0\n\nACK\n\nVIDEO OUTPUT LOCKS:\n0 U\n1 U\n\n", ""},
        {"lock", "VIDEO OUTPUT LOCKS:\n1 O\n\n", "ACK\n\nVIDEO OUTPUT LOCKS:\n1 O\n\n", ""},
        {"take of one's own lock", "VIDEO OUTPUT ROUTING:\n1 2\n\n", "ACK\n\n",
            "VIDEO OUTPUT ROUTING:\n1 2\n\n"},
    };
    RawClient one(hub);
    EXPECT_HEARS(one, greetingOf3x2);
    RawClient other(hub);
    EXPECT_HEARS(other, greetingOf3x2);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        for (const char byte : c.command) {
            one.send(QByteArray(1, byte));
            pumpUntilIdle();
        }
        EXPECT_HEARS(one, c.answer + c.told);
        EXPECT_HEARS(other, c.name == std::string_view("lock") ? "VIDEO OUTPUT LOCKS:\n1 L\n\n" : c.told);
    }
    expectAnswer(other, "VIDEO OUTPUT LOCKS:\n1 F\n\n", "ACK\n\nVIDEO OUTPUT LOCKS:\n1 U\n\n");
    matrix.setRoutes({{.destination = 0, .source = 2}});
    matrix.setLocks({{0, somebodyElse}});
    matrix.setLabels({{Side::Destination, 1, u"Wand é"_s}});
    EXPECT_HEARS(other,
        "VIDEO OUTPUT ROUTING:\n0 2\n\nVIDEO OUTPUT LOCKS:\n0 L\n\nOUTPUT LABELS:\n1 Wand \xc3\xa9\n\n");
    matrix.replace(MatrixState::ofSize(3, 2));
    EXPECT_HEARS(other, greetingOf3x2);
    EXPECT_EQ(hub.receivedBlocks().at(6), "VIDEO OUTPUT ROUTING:");
}

TEST_F(VideohubEmulatorTest, RefusesWhatItCannotDoAndThenDoesNoneOfIt)
{
    matrix.setLocks({{1, somebodyElse}});
    const char* commands[] = {
        "VIDEO OUTPUT ROUTING:\n2 0\n\n",
        "VIDEO OUTPUT ROUTING:\n0 3\n\n",
        "VIDEO OUTPUT ROUTING:\n0 -1\n\n",
        "VIDEO OUTPUT ROUTING:\n0\n\n",
        "VIDEO OUTPUT ROUTING:\n0 2\n1 3\n\n",
        "VIDEO OUTPUT ROUTING:\n0 2\n1 2\n\n",
        "VIDEO OUTPUT ROUTING:\nx 2\n\n",
        "INPUT LABELS:\n3 Too far\n\n",
        "OUTPUT LABELS:\n2 Too far\n\n",
        "VIDEO OUTPUT LOCKS:\n2 F\n\n",
        "VIDEO OUTPUT LOCKS:\n0 X\n\n",
        "VIDEO OUTPUT LOCKS:\n1 U\n\n",
        "VIDEO OUTPUT LOCKS:\n1 O\n\n",
        "VIDEOHUB OUTPUT ROUTING:\n0 2\n\n",
        "COFFEE:\n0 2\n\n",
        "COFFEE:\n\n",
    };
    RawClient client(hub);
    client.skipTo("END PRELUDE:\n\n");
    for (const auto* command : commands) {
        SCOPED_TRACE(command);
        expectAnswer(client, command, "NAK\n\n");
    }
    expectAnswer(client, "VIDEO OUTPUT ROUTING:\n\n", "ACK\n\nVIDEO OUTPUT ROUTING:\n0 0\n1 1\n\n");
    hub.quirks().omitLocks = true;
    expectAnswer(client, "VIDEO OUTPUT LOCKS:\n0 U\n\n", "NAK\n\n");
}

TEST_F(VideohubEmulatorTest, PlaysACaptureByteForByteAndGoesOnAsThatRouter)
{
    const QByteArray capture = "PROTOCOL PREAMBLE:\r\n  Version: 2.7 \r\n\r\n  VIDEOHUB DEVICE:\r\n"
                               "    Video inputs: 4\r\n Video outputs: 3\r\n\r\n"
                               "  OUTPUT LABELS:\r\n 0 Wall\r\n1\r\n3 Beyond\r\n\r\n"
                               "  VIDEO OUTPUT LOCKS:\r\n0 L\r\n1 U\r\n\r\n"
                               "  VIDEO OUTPUT ROUTING:\r\n0 3\r\n1 -1\r\n2 0";
    ASSERT_TRUE(hub.playCapture(capture));
    RawClient client(hub);
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
    RawClient client(hub);
    client.send("VIDEO OUTPUT ROUTING:\n\n");
    EXPECT_HEARS(client, noise + "ACK\n\nVIDEO OUTPUT ROUTING:\n0 0\n1 1\n\n");
}

} // namespace
