#include "RawClient.h"

#include "emulator/LW3Emulator.h"

#include <gtest/gtest.h>

using namespace corvane;
using namespace corvane::emulator;

namespace {

/// Lines as they stand in these tests, as they are on the wire.
QByteArray wire(QByteArray lines)
{
    return lines.replace("\n", "\r\n");
}

class LW3EmulatorTest : public testing::Test {
protected:
    static void expectAnswer(RawClient& client, const QByteArray& sent, const QByteArray& heard)
    {
        emulator::expectAnswer(client, wire(sent), wire(heard));
    }

    EmulatedMatrix matrix{4, 2};
    LW3Emulator device{matrix};
};

constexpr auto take = "0001#CALL /MEDIA/XP/VIDEO:switch(I3:O2)\n";
constexpr auto routesNow = "CHG /MEDIA/XP/VIDEO.DestinationConnectionStatus=I1;I3\n";

TEST_F(LW3EmulatorTest, ShowsItsTree)
{
    struct Case {
        const char* sent;
        const char* heard;
    };
    const Case cases[] = {
        {"GET /.ProductName\n", "pr /.ProductName=MX2-4x2-HDMI20\n"},
        {"0A1F#GET /.ProductName\n", "{0A1F\npr /.ProductName=MX2-4x2-HDMI20\n}\n"},
        {"GET /MEDIA/NAMES/VIDEO.*\n",
            "pw /MEDIA/NAMES/VIDEO.I1=1;Input 1\npw /MEDIA/NAMES/VIDEO.I2=1;Input 2\n"
            "pw /MEDIA/NAMES/VIDEO.I3=1;Input 3\npw /MEDIA/NAMES/VIDEO.I4=1;Input 4\n"
            "pw /MEDIA/NAMES/VIDEO.O1=1;Output 1\npw /MEDIA/NAMES/VIDEO.O2=1;Output 2\n"},
        {"GET /MEDIA/XP/VIDEO.*\n",
            "pr /MEDIA/XP/VIDEO.SourcePortCount=4\npr /MEDIA/XP/VIDEO.DestinationPortCount=2\n"
            "pr /MEDIA/XP/VIDEO.DestinationConnectionStatus=I1;I2\n"
            "pr /MEDIA/XP/VIDEO.DestinationPortStatus=T00AA;T00AA\n"
            "m- /MEDIA/XP/VIDEO:switch\nm- /MEDIA/XP/VIDEO:lockDestination\n"
            "m- /MEDIA/XP/VIDEO:unlockDestination\n"},
        {"GET /MEDIA/PORTS/VIDEO/I1/STATUS.SignalPresent\n",
            "pr /MEDIA/PORTS/VIDEO/I1/STATUS.SignalPresent=true\n"},
        {"GET /MEDIA/PORTS/VIDEO/I4/STATUS.*\n",
            "pr /MEDIA/PORTS/VIDEO/I4/STATUS.SignalPresent=false\n"
            "pr /MEDIA/PORTS/VIDEO/I4/STATUS.ActiveResolution=\n"},
        {"SET /MEDIA/NAMES/VIDEO.I1=1;\\(a\\) \\{b\\} \\#\\%\\\\\\r\\n\\t\n",
            "pw /MEDIA/NAMES/VIDEO.I1=1;\\(a\\) \\{b\\} \\#\\%\\\\\\r\\n\\t\n"},
        {"OPEN /MEDIA/XP/VIDEO\n", "o- /MEDIA/XP/VIDEO\n"},
        {"CLOSE /MEDIA/XP/VIDEO\n", "c- /MEDIA/XP/VIDEO\n"},
    };
    RawClient client(device);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sent);
        expectAnswer(client, c.sent, c.heard);
    }
}

TEST_F(LW3EmulatorTest, TellsWhatIsWrong)
{
    matrix.setLocks({{0, somebodyElse}});
    struct Case {
        const char* sent;
        const char* heard;
    };
    const Case cases[] = {
        {"HELLO\n", "-E %E001:Syntax error\n"},
        {"GET /.Nothing\n", "pE /.Nothing %E002:Not exists\n"},
        {"GET /MEDIA/NAMES/AUDIO.I1\n", "nE /MEDIA/NAMES/AUDIO %E002:Not exists\n"},
        {"GET /MEDIA/PORTS/VIDEO/I5/STATUS.*\n", "nE /MEDIA/PORTS/VIDEO/I5/STATUS %E002:Not exists\n"},
        {"OPEN /MEDIA/PORTS/VIDEO/STATUS\n", "nE /MEDIA/PORTS/VIDEO/STATUS %E002:Not exists\n"},
        {"OPEN /MEDIA/PORTS/VIDEO/O1/STATUS\n", "nE /MEDIA/PORTS/VIDEO/O1/STATUS %E002:Not exists\n"},
        {"SET /.ProductName=Mine\n", "pE /.ProductName %E005:Read only property\n"},
        {"SET /MEDIA/NAMES/VIDEO.I5=1;A\n", "pE /MEDIA/NAMES/VIDEO.I5 %E002:Not exists\n"},
        {"SET /MEDIA/NAMES/VIDEO.I1=1;A #\n", "pE /MEDIA/NAMES/VIDEO.I1 %E004:Invalid value\n"},
        {"SET /MEDIA/NAMES/VIDEO.I1=1;A\\\n", "pE /MEDIA/NAMES/VIDEO.I1 %E004:Invalid value\n"},
        {"CALL /MEDIA/XP/VIDEO:switch(I1:O1\n", "-E %E001:Syntax error\n"},
        {"CALL /MEDIA/XP/VIDEO:explode(O1)\n", "mE /MEDIA/XP/VIDEO:explode %E002:Not exists\n"},
        {"000A#CALL /MEDIA/XP/VIDEO:switch(I5:O2)\n",
            "{000A\nmE /MEDIA/XP/VIDEO:switch %E004:Invalid value\n}\n"},
        {"CALL /MEDIA/XP/VIDEO:switch(O1:O2)\n", "mE /MEDIA/XP/VIDEO:switch %E004:Invalid value\n"},
        {"CALL /MEDIA/XP/VIDEO:switch(I1:O3)\n", "mE /MEDIA/XP/VIDEO:switch %E004:Invalid value\n"},
        {"CALL /MEDIA/XP/VIDEO:switch(I3:O2;I3:O1)\n", "mE /MEDIA/XP/VIDEO:switch %E004:Invalid value\n"},
        {"CALL /MEDIA/XP/VIDEO:switch(I1:X2)\n", "mE /MEDIA/XP/VIDEO:switch %E004:Invalid value\n"},
        {"CLOSE /MEDIA/XP/VIDEO\n", "nE /MEDIA/XP/VIDEO %E002:Not exists\n"},
        {"CALL /MEDIA/XP/VIDEO:lockDestination(I1)\n",
            "mE /MEDIA/XP/VIDEO:lockDestination %E004:Invalid value\n"},
    };
    RawClient client(device);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sent);
        expectAnswer(client, c.sent, c.heard);
    }
    EXPECT_EQ(matrix.source(0, 0), 0);
    EXPECT_EQ(matrix.source(0, 1), 1);

    device.quirks().omitLocks = true;
    expectAnswer(client, "CALL /MEDIA/XP/VIDEO:lockDestination(O1)\n",
        "mE /MEDIA/XP/VIDEO:lockDestination %E002:Not exists\n");
    device.faults().refuseNext = 2;
    expectAnswer(client, "GET /.SerialNumber\n", "pr /.SerialNumber=00004711\n");
    expectAnswer(client, take, "{0001\nmE /MEDIA/XP/VIDEO:switch %E006:Access denied\n}\n");
    expectAnswer(client, "SET /MEDIA/NAMES/VIDEO.I1=1;A\n", "pE /MEDIA/NAMES/VIDEO.I1 %E006:Access denied\n");
}

TEST_F(LW3EmulatorTest, TellsChangesToThoseWhoOpenedTheNode)
{
    RawClient one(device);
    RawClient other(device);
    RawClient deaf(device);
    const QByteArray opening = "OPEN /MEDIA/XP/VIDEO\nOPEN /MEDIA/NAMES/VIDEO\n"
                               "OPEN /MEDIA/PORTS/VIDEO/I1/STATUS\n";
    const QByteArray opened = "o- /MEDIA/XP/VIDEO\no- /MEDIA/NAMES/VIDEO\no- /MEDIA/PORTS/VIDEO/I1/STATUS\n";
    expectAnswer(one, opening, opened);
    expectAnswer(other, opening, opened);

    const QByteArray locks = "CHG /MEDIA/XP/VIDEO.DestinationPortStatus=T00AA;L00AA\n";
    const QByteArray name = "CHG /MEDIA/NAMES/VIDEO.I3=1;Cam;3 100\\%\n";
    expectAnswer(one, take, QByteArray("{0001\nmO /MEDIA/XP/VIDEO:switch=OK\n}\n") + routesNow);
    expectAnswer(one, "0002#CALL /MEDIA/XP/VIDEO:lockDestination(O2)\n",
        "{0002\nmO /MEDIA/XP/VIDEO:lockDestination=OK\n}\n" + locks);
    expectAnswer(one, "0003#SET /MEDIA/NAMES/VIDEO.I3=1;Cam;3 100\\%\n",
        "{0003\npw /MEDIA/NAMES/VIDEO.I3=1;Cam;3 100\\%\n}\n" + name);
    EXPECT_HEARS(other, wire(routesNow + locks + name));

    matrix.setRoutes({{.destination = 1, .source = noSource}});
    device.setResolution(0, "");
    EXPECT_HEARS(other,
        wire("CHG /MEDIA/XP/VIDEO.DestinationConnectionStatus=I1;0\n"
             "CHG /MEDIA/PORTS/VIDEO/I1/STATUS.SignalPresent=false\n"
             "CHG /MEDIA/PORTS/VIDEO/I1/STATUS.ActiveResolution=\n"));
    pumpUntilIdle();
    EXPECT_EQ(deaf.received(), "");
    EXPECT_TRUE(deaf.isConnected());
}

} // namespace
