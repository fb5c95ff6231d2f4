#include "RawClient.h"

#include "emulator/KumoEmulator.h"
#include "emulator/LW3Emulator.h"
#include "emulator/QuartzEmulator.h"
#include "emulator/SWP08Emulator.h"
#include "emulator/VideohubEmulator.h"

using namespace corvane;
using namespace corvane::emulator;
using namespace Qt::StringLiterals;

namespace {

/// Two clients of one router. What stands in a test becomes what is on the wire by `wire`.
class Talk {
public:
    Talk(EmulatorServer& router, QByteArray (*wire)(const QByteArray&), const QByteArray& greeting = {})
        : one(router), other(router), m_wire(wire)
    {
        EXPECT_TRUE(pumpUntil([&] { return router.clientCount() == 2; }));
        EXPECT_HEARS(one, wire(greeting));
        EXPECT_HEARS(other, wire(greeting));
    }

    /// One says this and hears that; the other is told of it, if at all.
    void say(const QByteArray& sent, const QByteArray& heard, const QByteArray& told = {})
    {
        SCOPED_TRACE(sent.toStdString());
        expectAnswer(one, m_wire(sent), m_wire(heard));
        expectTold(told);
    }

    /// What the other is told of something that happens at the router.
    void expectTold(const QByteArray& told)
    {
        EXPECT_HEARS(other, m_wire(told));
        EXPECT_EQ(other.received(), "");
    }

    RawClient one;
    RawClient other;

private:
    QByteArray (*m_wire)(const QByteArray&);
};

QByteArray asItStands(const QByteArray& bytes)
{
    return bytes;
}

QByteArray withCarriageReturns(const QByteArray& lines)
{
    return QByteArray(lines).replace("\n", "\r\n");
}

QByteArray greetingOf3x2()
{
    return "PROTOCOL PREAMBLE:\nVersion: 2.8\n\n"
           "VIDEOHUB DEVICE:\nDevice present: true\nModel name: Blackmagic Smart Videohub 3 x 2\n"
           "Friendly name: Emulated Videohub\nUnique ID: 7C2E0D0C0A11\n"
           "Video inputs: 3\nVideo processing units: 0\nVideo outputs: 2\n"
           "Video monitoring outputs: 0\nSerial ports: 0\n\n"
           "INPUT LABELS:\n0 Input 1\n1 Input 2\n2 Input 3\n\nOUTPUT LABELS:\n0 Output 1\n1 Output 2\n\n"
           "VIDEO OUTPUT LOCKS:\n0 U\n1 U\n\nVIDEO OUTPUT ROUTING:\n0 0\n1 1\n\n"
           "CONFIGURATION:\nTake Mode: false\n\nEND PRELUDE:\n\n";
}

TEST(VideohubFace, TalksAndRefuses)
{
    EmulatedMatrix matrix(3, 2);
    VideohubEmulator hub(matrix);
    Talk talk(hub, asItStands, greetingOf3x2());
    const QByteArray route = "VIDEO OUTPUT ROUTING:\n1 2\n\n";
    talk.say(route, "ACK\n\n" + route, route);
    talk.say("VIDEO OUTPUT ROUTING:\r\n0 1\r\n1 2\r\n\r\n", "ACK\n\nVIDEO OUTPUT ROUTING:\n0 1\n\n",
        "VIDEO OUTPUT ROUTING:\n0 1\n\n");
    talk.say("VIDEO OUTPUT ROUTING:\n\n\nVIDEO OUTPUT LOCKS:\n\n",
        "ACK\n\nVIDEO OUTPUT ROUTING:\n0 1\n1 2\n\nACK\n\nVIDEO OUTPUT LOCKS:\n0 U\n1 U\n\n");
    for (const QByteArray label : {"INPUT LABELS:\n2 Cam: 3 \n\n", "OUTPUT LABELS:\n1 \n\n"})
        talk.say(label, "ACK\n\n" + label, label);
    talk.say("VIDEO OUTPUT LOCKS:\n1 O\n\n", "ACK\n\nVIDEO OUTPUT LOCKS:\n1 O\n\n",
        "VIDEO OUTPUT LOCKS:\n1 L\n\n");
    talk.say("VIDEO OUTPUT ROUTING:\n1 0\n\n", "ACK\n\nVIDEO OUTPUT ROUTING:\n1 0\n\n",
        "VIDEO OUTPUT ROUTING:\n1 0\n\n");
    talk.say("VIDEO OUTPUT LOCKS:\n1 F\n\n", "ACK\n\nVIDEO OUTPUT LOCKS:\n1 U\n\n",
        "VIDEO OUTPUT LOCKS:\n1 U\n\n");
    matrix.replace(MatrixState::ofSize(3, 2));
    talk.expectTold(greetingOf3x2());
    EXPECT_HEARS(talk.one, greetingOf3x2());

    matrix.setLocks({{1, somebodyElse}});
    const QByteArray lock = "VIDEO OUTPUT LOCKS:\n1 L\n\n";
    talk.expectTold(lock);
    EXPECT_HEARS(talk.one, lock);
    for (const auto* body : {"ROUTING:\n2 0", "ROUTING:\n0 3", "ROUTING:\n0 -1", "ROUTING:\n0",
             "ROUTING:\n0 2\n1 3", "ROUTING:\n0 2\n1 2", "ROUTING:\nx 2", "LOCKS:\n2 F", "LOCKS:\n0 X",
             "LOCKS:\n1 U", "LOCKS:\n1 O"})
        talk.say(QByteArray("VIDEO OUTPUT ") + body + "\n\n", "NAK\n\n");
    for (const auto* block : {"INPUT LABELS:\n3 A", "OUTPUT LABELS:\n2 A", "VIDEOHUB OUTPUT ROUTING:\n0 2",
             "COFFEE:\n0 2", "COFFEE:\n"})
        talk.say(QByteArray(block) + "\n\n", "NAK\n\n");
    hub.quirks().omitLocks = true;
    talk.say("VIDEO OUTPUT LOCKS:\n0 U\n\n", "NAK\n\n");
    EXPECT_EQ(matrix.source(0, 0), 0);
}

TEST(VideohubFace, PlaysACaptureByteForByteAndGoesOnAsThatRouterIfItTellsASize)
{
    const QByteArray capture = "PROTOCOL PREAMBLE:\r\n  Version: 2.7 \r\n\r\n  VIDEOHUB DEVICE:\r\n"
                               "    Video inputs: 4\r\n Video outputs: 3\r\n\r\n"
                               "  OUTPUT LABELS:\r\n 0 Wall\r\n1\r\n3 Beyond\r\n\r\n"
                               "  VIDEO OUTPUT LOCKS:\r\n0 L\r\n1 U\r\n\r\n"
                               "  VIDEO OUTPUT ROUTING:\r\n0 3\r\n1 -1\r\n2 0";
    const QByteArray noise =
        "HTTP/1.1 400 Bad Request\r\n\r\nVIDEOHUB DEVICE:\nVideo inputs: 99999999999\n\n";
    const QByteArray tables = "ACK\n\nOUTPUT LABELS:\n0 Wall\n1 \n2 Output 3\n\n"
                              "ACK\n\nVIDEO OUTPUT LOCKS:\n0 L\n1 U\n2 U\n\n"
                              "ACK\n\nVIDEO OUTPUT ROUTING:\n0 3\n1 -1\n2 0\n\n";
    EmulatedMatrix matrix(3, 2);
    VideohubEmulator hub(matrix);
    EXPECT_TRUE(hub.playCapture(capture));
    Talk(hub, asItStands, capture)
        .say("OUTPUT LABELS:\n\nVIDEO OUTPUT LOCKS:\n\nVIDEO OUTPUT ROUTING:\n\n", tables);
    EXPECT_FALSE(hub.playCapture(noise));
    EXPECT_HEARS(RawClient(hub), noise);
    EXPECT_EQ(matrix.source(0, 2), 0);
}

TEST(SWP08Face, TalksAndRefuses)
{
    using Form = SWP08Quirks::Form;
    EmulatedMatrix matrix(300, 300, 2);
    SWP08Emulator router(matrix);
    Talk talk(router, QByteArray::fromHex);
    const QByteArray ask0 = "10 02 01 00 00 00 04 FB 10 03";
    const QByteArray ask1 = "10 02 01 00 00 01 04 FA 10 03";
    talk.say(ask1, "10 06 10 02 03 00 00 01 01 05 F6 10 03");
    talk.say("10 02 01 00 00 10 10 04 EB 10 03", "10 06 10 02 03 00 00 10 10 10 10 05 D8 10 03");
    talk.say("10 02 01 00 00 74 04 87 10 03", "10 06 10 02 03 00 00 74 74 05 10 10 10 03");
    talk.say("10 02 01 00 20 1F 04 BC 10 03", "10 06 10 02 03 00 22 1F 1F 05 98 10 03");
    talk.say("10 02 01 01 00 02 04 F8 10 03", "10 06 10 02 03 01 00 02 02 05 F3 10 03");
    talk.say("10 02 02 00 21 1F 48 05 71 10 03", "10 06 10 02 04 00 21 1F 48 05 6F 10 03",
        "10 02 04 00 21 1F 48 05 6F 10 03");
    talk.say("00 06 10 03 10 10 10 02 08 01 F7 10 03 08", "10 06"); // noise around a frame
    talk.say("10 02 01 00 00 10 02 08 01 F7 10 03", "10 06"); // begun again

    router.quirks().extendedFrom = 256;
    talk.say("10 02 81 00 00 01 1F 05 5A 10 03", "10 06 10 02 83 00 00 01 1F 00 C8 00 08 8D 10 03");
    talk.say("10 02 82 00 00 00 01 01 03 07 72 10 03", "10 06 10 02 04 00 02 01 03 05 F1 10 03",
        "10 02 04 00 02 01 03 05 F1 10 03");
    talk.say("10 02 01 00 20 1F 04 BC 10 03", "10 15"); // a question in the other form
    talk.say("10 02 02 00 21 1F 48 05 71 10 03", "10 15"); // a take in the other form

    router.quirks() = {.answerForm = Form::WordDump, .acknowledgeLast = true};
    talk.say(ask0, "10 02 17 00 01 00 00 00 00 07 E1 10 03 10 06");
    router.quirks() = {.answerTogether = true, .highestFirst = true};
    talk.say(ask0 + ask1, "10 06 10 06 10 02 03 00 02 01 03 05 F2 10 03 10 02 03 00 00 00 00 05 F8 10 03");
    router.quirks() = {.extraMessages = true, .phantomPorts = true};
    talk.say(ask0,
        "10 06 10 02 03 00 00 00 00 05 F8 10 03 10 02 03 00 77 68 68 05 B1 10 03 10 02 08 01 F7 10 03"
        "10 02 0B 00 00 00 03 05 06 E7 10 03 10 02 7B 00 10 10 03 72 10 03"
        "10 02 83 00 00 00 00 00 00 00 08 75 10 03");
    router.quirks() = {.badChecksums = 1};
    RawClient refusing(router);
    const auto hex = QByteArray::fromHex;
    expectAnswer(refusing, hex(ask0), hex("10 06 10 02 03 00 00 00 00 05 F9 10 03"));
    for (int repeat = 1; repeat <= 5; ++repeat)
        expectAnswer(refusing, hex("10 15"), hex("10 02 03 00 00 00 00 05 F8 10 03"));
    expectAnswer(refusing, hex("10 15"), "");

    matrix.setLocks({{3, somebodyElse}});
    for (const auto* sent : {
             "10 02 01 00 00 01 04 FB 10 03", // checksum
             "10 02 01 00 00 01 05 F9 10 03", // count
             "10 02 10 03", // nothing in it
             "10 02 01 00 20 2C 04 AF 10 03", // destination 300
             "10 02 01 02 00 01 04 F8 10 03", // level 2
             "10 02 01 10 10 00 01 04 EA 10 03", // matrix 1
             "10 02 02 00 02 00 2C 05 CB 10 03", // source 300
             "10 02 02 00 00 03 07 05 EF 10 03", // locked
         })
        talk.say(sent, "10 15");
    matrix.setRoutes({{.level = 1, .destination = 0, .source = noSource}});
    talk.expectTold("10 02 04 01 07 00 7F 05 70 10 03");
}

TEST(QuartzFace, TalksAndRefuses)
{
    using LineEnd = QuartzQuirks::LineEnd;
    EmulatedMatrix matrix(12, 1200, 3);
    QuartzEmulator router(matrix);
    Talk talk(router, asItStands);
    talk.say(".IV3\r", ".AV3,3\r");
    talk.say(".IAB1200\r", ".AA1200,12\r.AB1200,12\r");
    for (int time = 0; time < 2; ++time)
        talk.say(".SV3,1\r", ".UV3,1\r", time == 0 ? ".UV3,1\r" : "");
    talk.say("\r\n.SVB004,012\r\n\r\n.IV4\n", ".UVB4,12\r.AV4,12\r", ".UVB4,12\r");
    router.quirks() = {.lineEnd = LineEnd::Lf, .padNumbers = true};
    talk.say(".IV3\r.IV1200\r", ".AV003,001\n.AV1200,012\n");
    router.quirks() = {.lineEnd = LineEnd::CrLf, .acknowledgeLines = true, .ignoreRepeats = true};
    talk.say(".SV1,2\r", ".A\r\n.UV1,2\r\n", ".UV1,2\r\n");
    talk.say(".SV1,2\r.IV1\r", ".AV1,2\r\n");
    router.quirks() = {.interposeUpdates = true};
    talk.say(".IV3\r", ".UV4,12\r.AV3,1\r");
    router.quirks() = {.refusal = ".E", .ignoreAbsentPorts = true};
    talk.say(".IV1201\r.IV0\r.SV1201,1\r", ".E\r.E\r");
    router.quirks() = {.refusal = "", .echoOthers = true};
    talk.say(".IV1201\r", "", ".IV1201\r");

    router.quirks() = {};
    matrix.setLocks({{4, somebodyElse}});
    for (const QByteArray line : {".IV0", ".IV1201", ".IV", ".I3", ".IC3", ".IVV3", ".Iv3", ".IV3,1", ".SV3",
             ".SV3,0", ".SV3,13", ".SV3,-1", ".SV5,1", ".SV3,1,1", ".XV3", "hello", "?"})
        talk.say(line + "\r", "?\r");
    matrix.setRoutes({{.level = 2, .destination = 0, .source = noSource}});
    matrix.setRoutes({{0, 2, 4}, {1, 2, 4}, {2, 2, 5}});
    router.powerUp();
    matrix.replace(MatrixState::ofSize(1, 1));
    talk.expectTold(".UB1,0\r.UVA3,5\r.UB3,6\r.P\r.P\r");
}

TEST(LW3Face, TalksAndRefuses)
{
    EmulatedMatrix matrix(4, 2);
    LW3Emulator device(matrix);
    Talk talk(device, withCarriageReturns);
    RawClient deaf(device);
    talk.say("0A1F#GET /.ProductName\n", "{0A1F\npr /.ProductName=MX2-4x2-HDMI20\n}\n");
    talk.say("GET /MEDIA/NAMES/VIDEO.O2\n", "pw /MEDIA/NAMES/VIDEO.O2=1;Output 2\n");
    talk.say("GET /MEDIA/XP/VIDEO.*\n",
        "pr /MEDIA/XP/VIDEO.SourcePortCount=4\npr /MEDIA/XP/VIDEO.DestinationPortCount=2\n"
        "pr /MEDIA/XP/VIDEO.DestinationConnectionStatus=I1;I2\n"
        "pr /MEDIA/XP/VIDEO.DestinationPortStatus=T00AA;T00AA\nm- /MEDIA/XP/VIDEO:switch\n"
        "m- /MEDIA/XP/VIDEO:lockDestination\nm- /MEDIA/XP/VIDEO:unlockDestination\n");
    talk.say("GET /MEDIA/PORTS/VIDEO/I4/STATUS.*\n",
        "pr /MEDIA/PORTS/VIDEO/I4/STATUS.SignalPresent=false\n"
        "pr /MEDIA/PORTS/VIDEO/I4/STATUS.ActiveResolution=\n");
    const QByteArray escaped = "/MEDIA/NAMES/VIDEO.I1=1;\\(a\\) \\{b\\} \\#\\%\\\\\\r\\n\\t\n";
    talk.say("SET " + escaped, "pw " + escaped);
    talk.say("OPEN /MEDIA/XP/VIDEO\nCLOSE /MEDIA/XP/VIDEO\n", "o- /MEDIA/XP/VIDEO\nc- /MEDIA/XP/VIDEO\n");
    talk.other.send(withCarriageReturns(
        "OPEN /MEDIA/XP/VIDEO\nOPEN /MEDIA/NAMES/VIDEO\nOPEN /MEDIA/PORTS/VIDEO/I1/STATUS\n"));
    talk.expectTold("o- /MEDIA/XP/VIDEO\no- /MEDIA/NAMES/VIDEO\no- /MEDIA/PORTS/VIDEO/I1/STATUS\n");
    talk.say("0001#CALL /MEDIA/XP/VIDEO:switch(I3:O2)\n", "{0001\nmO /MEDIA/XP/VIDEO:switch=OK\n}\n",
        "CHG /MEDIA/XP/VIDEO.DestinationConnectionStatus=I1;I3\n");
    talk.say("CALL /MEDIA/XP/VIDEO:lockDestination(O2)\n", "mO /MEDIA/XP/VIDEO:lockDestination=OK\n",
        "CHG /MEDIA/XP/VIDEO.DestinationPortStatus=T00AA;L00AA\n");
    talk.say("SET /MEDIA/NAMES/VIDEO.I3=1;Cam;3 100\\%\n", "pw /MEDIA/NAMES/VIDEO.I3=1;Cam;3 100\\%\n",
        "CHG /MEDIA/NAMES/VIDEO.I3=1;Cam;3 100\\%\n");
    device.setResolution(0, "");
    talk.expectTold("CHG /MEDIA/PORTS/VIDEO/I1/STATUS.SignalPresent=false\n"
                    "CHG /MEDIA/PORTS/VIDEO/I1/STATUS.ActiveResolution=\n");

    talk.say("HELLO\n", "-E %E001:Syntax error\n");
    talk.say("000A#CALL /MEDIA/XP/VIDEO:switch(I1:O1\n", "{000A\n-E %E001:Syntax error\n}\n");
    talk.say("CALL /MEDIA/XP/VIDEO:explode(O1)\n", "mE /MEDIA/XP/VIDEO:explode %E002:Not exists\n");
    talk.say("GET /.Nothing\n", "pE /.Nothing %E002:Not exists\n");
    talk.say("CLOSE /MEDIA/XP/VIDEO\n", "nE /MEDIA/XP/VIDEO %E002:Not exists\n");
    for (const QByteArray node :
        {"/MEDIA/NAMES/AUDIO", "/MEDIA/PORTS/VIDEO/I5/STATUS", "/MEDIA/PORTS/VIDEO/O1/STATUS"})
        talk.say(
            "GET " + node + ".*\nOPEN " + node + "\n", ("nE " + node + " %E002:Not exists\n").repeated(2));
    talk.say("SET /.ProductName=Mine\n", "pE /.ProductName %E005:Read only property\n");
    talk.say("SET /MEDIA/NAMES/VIDEO.I5=1;A\n", "pE /MEDIA/NAMES/VIDEO.I5 %E002:Not exists\n");
    for (const QByteArray name : {"A #", "A\\"})
        talk.say(
            "SET /MEDIA/NAMES/VIDEO.I1=1;" + name + "\n", "pE /MEDIA/NAMES/VIDEO.I1 %E004:Invalid value\n");
    for (const QByteArray routes : {"I5:O2", "O1:O2", "I1:O3", "I3:O2;I3:O1", "I1:X2"})
        talk.say("CALL /MEDIA/XP/VIDEO:switch(" + routes + ")\n",
            "mE /MEDIA/XP/VIDEO:switch %E004:Invalid value\n");
    device.quirks().omitLocks = true;
    talk.say("CALL /MEDIA/XP/VIDEO:lockDestination(O1)\n",
        "mE /MEDIA/XP/VIDEO:lockDestination %E002:Not exists\n");
    EXPECT_EQ(deaf.received(), "");
}

TEST(KumoFace, TalksAndRefuses)
{
    EmulatedMatrix matrix(4, 2);
    KumoEmulator kumo(matrix);
    matrix.setRoutes({{.destination = 1, .source = noSource}});
    RawClient client(kumo);
    const auto response = [&](const QByteArray& query) {
        client.send("GET /config?action=" + query + " HTTP/1.1\r\nHost: 127.0.0.1\r\nAccept: */*\r\n\r\n");
        pumpUntilIdle();
        return client.next(client.received()).toStdString();
    };
    EXPECT_EQ(response("get&paramid=eParamID_XPT_Destination1_Status"),
        "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: 71\r\nConnection: "
        "keep-alive\r\n\r\n"
        R"({"name":"eParamID_XPT_Destination1_Status","value":"1","value_name":""})");
    const std::pair<QByteArray, std::string> values[] = {
        {"get&paramid=eParamID_NumberOfSources", R"("4")"},
        {"get&paramid=eParamID_NumberOfDestinations", R"("2")"},
        {"get&paramid=eParamID_XPT_Source4_Line_1", R"("Input 4")"},
        {"get&paramid=eParamID_XPT_Destination2_Line_1", R"("Output 2")"},
        {"get&paramid=eParamID_XPT_Destination2_Status", R"("0")"},
        {"set&paramid=eParamID_XPT_Destination1_Status&value=3", R"("3")"},
        {"set&paramid=eParamID_XPT_Source1_Line_1&value=A%26B%20%22%C3%A9%2B", R"("A&B \"é+")"},
        {"set&paramid=eParamID_XPT_Source1_Line_1&value=", R"("")"},
    };
    for (const auto& [query, value] : values)
        EXPECT_TRUE(response(query).ends_with(R"("value":)" + value + R"(,"value_name":""})")) << value;
    EXPECT_EQ(matrix.source(0, 0), 2);

    matrix.setLocks({{1, somebodyElse}});
    const std::pair<QByteArray, std::string> refusals[] = {
        {"set&paramid=eParamID_XPT_Destination2_Status&value=1", "403 Forbidden"},
        {"set&paramid=eParamID_XPT_Destination1_Status&value=5", "400 Bad Request"},
        {"set&paramid=eParamID_XPT_Destination1_Status&value=0", "400 Bad Request"},
        {"set&paramid=eParamID_NumberOfSources&value=9", "400 Bad Request"},
        {"dance&paramid=eParamID_NumberOfSources", "400 Bad Request"},
        {"get&paramid=eParamID_XPT_Source1_Status", "404 Not Found"},
        {"get&paramid=eParamID_XPT_Source5_Line_1", "404 Not Found"},
        {"get&paramid=eParamID_XPT_Source0_Line_1", "404 Not Found"},
    };
    for (const auto& [query, status] : refusals)
        EXPECT_TRUE(response(query).starts_with("HTTP/1.1 " + status)) << query.toStdString();
    EXPECT_EQ(kumo.mostRequestsAtOnce(), 1);
    for (const auto* head : {"GET / HTTP/1.0\r\n\r\n", "GET / HTTP/1.1\r\nConnection: close\r\n\r\n"}) {
        RawClient brief(kumo);
        brief.send(head);
        EXPECT_TRUE(pumpUntil([&] { return brief.isClosed(); })) << head;
    }
    kumo.faults().silent = true;
    client.send(QByteArray("GET / HTTP/1.1\r\n\r\n").repeated(3));
    EXPECT_TRUE(pumpUntil([&] { return kumo.mostRequestsAtOnce() == 3; }));
}

} // namespace
