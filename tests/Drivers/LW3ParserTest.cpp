#include "Drivers/LW3Parser.h"
#include "Drivers/EventText.h"
#include "support/ManualQueue.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

using Texts = std::vector<std::string>;

const std::string nameList = "pr /.ProductName=MX2-2x3\npw /MEDIA/NAMES/VIDEO.I1=1;Cam\n"
                             "pw /MEDIA/NAMES/VIDEO.I2=1;VTR\npw /MEDIA/NAMES/VIDEO.O1=1;PGM\n"
                             "pw /MEDIA/NAMES/VIDEO.O2=1;AUX\npw /MEDIA/NAMES/VIDEO.O3=1;MON\n";
const std::string routesOnly = "pr /MEDIA/XP/VIDEO.DestinationConnectionStatus=I1;I2;0\n";
const std::string locksOnly = "pr /MEDIA/XP/VIDEO.DestinationPortStatus=T00AA;L00AA;T00AA\n";
const std::string matrix =
    "pr /MEDIA/XP/VIDEO.SourcePortCount=2\n" + routesOnly + locksOnly + "m- /MEDIA/XP/VIDEO:switch\n";
const std::string connected =
    "connected \"Saved name\" \"MX2-2x3\" [Cam|VTR] [PGM|AUX|MON] routes 0=0 1=1 locked 1";

const std::string firstQuestions =
    "GET /.ProductName\r\nGET /MEDIA/NAMES/VIDEO.*\r\nGET /MEDIA/XP/VIDEO.*\r\n";
const std::string matrixQuestion = "GET /MEDIA/XP/VIDEO.*\r\n";
const std::string statusQuestions = "OPEN /MEDIA/XP/VIDEO\r\nOPEN /MEDIA/NAMES/VIDEO\r\n"
                                    "GET /MEDIA/PORTS/VIDEO/I1/STATUS.SignalPresent\r\n"
                                    "GET /MEDIA/PORTS/VIDEO/I1/STATUS.ActiveResolution\r\n"
                                    "OPEN /MEDIA/PORTS/VIDEO/I1/STATUS\r\n"
                                    "GET /MEDIA/PORTS/VIDEO/I2/STATUS.SignalPresent\r\n"
                                    "GET /MEDIA/PORTS/VIDEO/I2/STATUS.ActiveResolution\r\n"
                                    "OPEN /MEDIA/PORTS/VIDEO/I2/STATUS\r\n";

/// A parser whose clock the test moves, and what it had to say.
struct Device {
    Device()
    {
        parser.onSend([this](const QByteArray& lines) { sent.push_back(lines.toStdString()); });
        parser.begin();
    }

    /// The events that these bytes cause at once.
    Texts hear(std::string_view bytes)
    {
        parser.ingest(bytes);
        return settle();
    }

    Texts wait(Duration time)
    {
        queue.advance(time);
        return settle();
    }

    Texts settle()
    {
        queue.runReady();
        return log.takeNew();
    }

    Texts takeSent() { return std::exchange(sent, {}); }

    /// Whatever was said since the beginning, in one piece.
    std::string allSent() const
    {
        std::string text;
        for (const auto& lines : sent)
            text += lines;
        return text;
    }

    ManualQueue queue;
    RouterEventStream events;
    EventLog log{events, queue};
    LW3Parser parser{QStringLiteral("Saved name"), queue, events};
    Texts sent;
};

struct ConnectedDevice : Device {
    ConnectedDevice()
    {
        hear(nameList + matrix);
        EXPECT_THAT(wait(600ms), ElementsAre(connected));
        sent.clear();
    }
};

TEST(LW3Parser, AsksForNamesAndMatrixAtOnceAndForSignalsWhenTheNamesHaveEnded)
{
    Device device;
    EXPECT_THAT(device.takeSent(), ElementsAre(firstQuestions));
    EXPECT_THAT(device.hear(nameList), IsEmpty());
    device.wait(299ms);
    device.hear("pw /MEDIA/NAMES/VIDEO.O1=1;PGM\n");
    device.wait(299ms);
    device.hear(matrix);
    EXPECT_THAT(device.sent, IsEmpty());
    device.wait(1ms);
    EXPECT_THAT(device.takeSent(), ElementsAre(statusQuestions));
    // What comes later is asked for no more.
    device.hear("CHG /MEDIA/NAMES/VIDEO.I3=1;New\n");
    device.wait(1h);
    EXPECT_THAT(device.sent, IsEmpty());
}

TEST(LW3Parser, ConnectsOnceTheDeviceHasBeenQuietForAWhile)
{
    Device device;
    device.hear(nameList + matrix);
    EXPECT_THAT(device.wait(599ms), IsEmpty());
    device.hear("pr /.SerialNumber=4711\n");
    EXPECT_THAT(device.wait(599ms), IsEmpty());
    device.hear("}\n");
    EXPECT_THAT(device.wait(599ms), IsEmpty());
    // None of these tells of a property.
    device.hear("{0001\no- /MEDIA/XP/VIDEO\npE /.Nothing %E002:Not exists\n\npr nothing\nCHG");
    EXPECT_THAT(device.wait(1ms), ElementsAre(connected));
    EXPECT_THAT(device.wait(1h), IsEmpty());
}

TEST(LW3Parser, GathersSignalsInSilenceAndTellsOfThemWithTheState)
{
    Device device;
    device.hear(nameList + matrix
        + "pr /MEDIA/PORTS/VIDEO/I1/STATUS.SignalPresent=true\n"
          "pr /MEDIA/PORTS/VIDEO/I1/STATUS.ActiveResolution=1920x1080p60\n"
          "pr /MEDIA/PORTS/VIDEO/I2/STATUS.SignalPresent=false\n"
          "pr /MEDIA/PORTS/VIDEO/I9223372036854775807/STATUS.SignalPresent=true\n");
    EXPECT_THAT(device.wait(600ms),
        ElementsAre(connected
            + " input 0 present 1920x1080p60 input 1 absent "
              " input 9223372036854775806 present "));
}

TEST(LW3Parser, ReportsPortsVendorAndLevelAsTheControllerNeedsThem)
{
    ManualQueue queue;
    RouterEventStream events;
    std::optional<RouterState> state;
    events.consume(queue, {}, [&](RouterDriverEvent&& event) {
        if (auto* const now = std::get_if<driverEvent::Connected>(&event))
            state = std::move(now->state);
    });
    LW3Parser parser(QStringLiteral("Saved name"), queue, events);
    parser.begin();
    parser.ingest(nameList + matrix);
    queue.advance(600ms);
    ASSERT_TRUE(state);
    EXPECT_EQ(state->vendor, RouterVendor::lightware);
    EXPECT_EQ(state->levels, (QList<RouterLevel>{{0, QStringLiteral("Video"), LevelKind::video}}));
    EXPECT_EQ(state->sources.at(1), (Port{1, PortKind::source, QStringLiteral("VTR")}));
    EXPECT_EQ(state->destinations.at(2), (Port{2, PortKind::destination, QStringLiteral("MON")}));
    EXPECT_EQ(state->routing.keys(), QList<qint64>{0});
}

TEST(LW3Parser, SaysTheSameHoweverTheStreamIsCut)
{
    const std::string greeting = nameList + matrix;
    const std::string news = "CHG /MEDIA/XP/VIDEO.DestinationConnectionStatus=I2;I2;0;\n\n"
                             "{0001\nmE /MEDIA/XP/VIDEO:switch %E004:Invalid value\n}\n"
                             "CHG /MEDIA/NAMES/VIDEO.I2=1;K\xc3\xb6ln;2\n"
                             "CHG /MEDIA/PORTS/VIDEO/I1/STATUS.SignalPresent=TRUE\n";
    const Texts expected{connected, "route 0:0=1", "refused Route refused: E004:Invalid value",
        "label source 1 Köln;2", "input 0 present "};
    const auto cutInTwo = [](Device& device, const std::string& text, std::size_t cut) {
        device.parser.ingest(std::string_view(text).substr(0, cut));
        device.parser.ingest(std::string_view(text).substr(cut));
    };
    const auto withCarriageReturns = [](const std::string& text) {
        std::string result;
        for (const char byte : text)
            result += byte == '\n' ? std::string("\r\n") : std::string(1, byte);
        return result;
    };
    const auto run = [&](const std::string& first, std::size_t firstCut, const std::string& second,
                         std::size_t secondCut) {
        Device device;
        EXPECT_EQ(device.parser.registerCommand(LW3Parser::Command::route), "0001");
        cutInTwo(device, first, firstCut);
        device.wait(600ms);
        cutInTwo(device, second, secondCut);
        device.settle();
        EXPECT_EQ(device.log.all(), expected) << "cut at bytes " << firstCut << " and " << secondCut;
        EXPECT_EQ(device.allSent(), firstQuestions + statusQuestions + matrixQuestion);
    };
    for (std::size_t cut = 0; cut <= greeting.size(); ++cut)
        run(greeting, cut, news, 0);
    const auto wireNews = withCarriageReturns(news);
    for (std::size_t cut = 0; cut <= wireNews.size(); ++cut)
        run(withCarriageReturns(greeting), 0, wireNews, cut);

    Device device;
    EXPECT_EQ(device.parser.registerCommand(LW3Parser::Command::route), "0001");
    for (const char byte : greeting)
        device.hear({&byte, 1});
    device.wait(600ms);
    for (const char byte : news)
        device.hear({&byte, 1});
    EXPECT_EQ(device.log.all(), expected) << "byte by byte";
}

TEST(LW3Parser, ReadsEachLineOnItsOwn)
{
    struct Case {
        const char* name;
        std::string line;
        Texts events;
    };
    const std::string names = "CHG /MEDIA/NAMES/VIDEO.";
    const std::string routes = "CHG /MEDIA/XP/VIDEO.DestinationConnectionStatus=";
    const std::string locks = "CHG /MEDIA/XP/VIDEO.DestinationPortStatus=";
    const std::string input = "CHG /MEDIA/PORTS/VIDEO/I";
    const Case cases[] = {
        {"a change", names + "I1=1;Cam 1", {"label source 0 Cam 1"}},
        {"an answer", "pw /MEDIA/NAMES/VIDEO.O3=2;Wall", {"label destination 2 Wall"}},
        {"a read-only answer", "pr /MEDIA/NAMES/VIDEO.O3=2;Wall", {"label destination 2 Wall"}},
        {"a name that is what it was", names + "I1=7;Cam", {}},
        {"only the first semicolon cuts", names + "I1=1;Cam;2", {"label source 0 Cam;2"}},
        {"a plain name", names + "I1=Plain", {"label source 0 Plain"}},
        {"an empty name", names + "I1=1;", {"label source 0 "}},
        {"no name at all", names + "I1=", {"label source 0 "}},
        {"any sign in a name", names + "I1=1;a=b:c {%} #1 ", {"label source 0 a=b:c {%} #1 "}},
        {"a name of any script", names + "I1=1;\xf0\x9f\x8e\xa5 カメラ", {"label source 0 🎥 カメラ"}},
        {"a name that is not UTF-8", names + "I1=1;K\xf6ln", {"label source 0 K\ufffdln"}},
        {"a port that is new", names + "O9=1;Late", {"label destination 8 Late"}},
        {"a number with a sign", names + "I+2=1;B", {"label source 1 B"}},
        {"port zero", names + "I0=1;A", {}},
        {"a negative port", names + "I-1=1;A", {}},
        {"a key of no side", names + "X1=1;A", {}},
        {"a key without a number", names + "I=1;A", {}},
        {"a key with more behind", names + "I1a=1;A", {}},
        {"an empty key", names + "=1;A", {}},
        {"the highest port", names + "I65536=1;A", {"label source 65535 A"}},
        {"a port that no matrix has", names + "I65537=1;A", {}},
        {"the largest number", names + "I9223372036854775807=1;A", {}},
        {"beyond all numbers", names + "I9223372036854775808=1;A", {}},

        {"routes that are what they were", routes + "I1;I2;0", {}},
        {"one that changed", routes + "I1;I1;0", {"route 0:1=0"}},
        {"none where there was one", routes + "I1;0;0", {"route 0:1=none"}},
        {"input zero is none", routes + "I0;I2;0", {"route 0:0=none"}},
        {"so is whatever is no input", routes + ";O1;x", {"route 0:0=none", "route 0:1=none"}},
        {"blanks around items", routes + " I1\t; I2 ;  I2", {"route 0:2=1"}},
        {"a blank inside", routes + "I 1;I2;0", {"route 0:0=none"}},
        {"the end of a list that ends too soon", routes + "I1", {}},
        {"a semicolon at the end", routes + "I1;I2;0;", {}},
        {"more than there are outputs", routes + "I1;I2;0;I2", {"route 0:3=1"}},
        {"inputs of any number", routes + "I9223372036854775807;I9223372036854775808",
            {"route 0:0=9223372036854775806", "route 0:1=none"}},
        {"an empty list", routes, {"route 0:0=none"}},

        {"locks that are what they were", locks + "T00AA;L00AA;T00AA", {}},
        {"locks that changed", locks + "L;T", {"lock 0", "unlock 1"}},
        {"only an L that comes first locks", locks + " L;l00;TL;MLL", {"unlock 1"}},
        {"a lock beyond the outputs", locks + "T;L;T;L", {"lock 3"}},
        {"an empty lock list", locks, {}},

        {"a signal", input + "1/STATUS.SignalPresent=true", {"input 0 present "}},
        {"in any case", input + "1/STATUS.SignalPresent=True", {"input 0 present "}},
        {"no signal", input + "2/STATUS.SignalPresent=yes", {"input 1 absent "}},
        {"a resolution", input + "2/STATUS.ActiveResolution=720p50", {"input 1 absent 720p50"}},
        {"no resolution", input + "2/STATUS.ActiveResolution=", {"input 1 absent "}},
        {"another property", input + "2/STATUS.Colour=blue", {}},
        {"a property of no name", input + "2/STATUS.=true", {}},
        {"input zero", input + "0/STATUS.SignalPresent=true", {}},
        {"no number", input + "x/STATUS.SignalPresent=true", {}},
        {"an output", "CHG /MEDIA/PORTS/VIDEO/O1/STATUS.SignalPresent=true", {}},
        {"another node", input + "1/FORMAT.SignalPresent=true", {}},
        {"only the first status cuts", input + "1/STATUS.x/STATUS.SignalPresent=true", {}},

        {"another path", "CHG /MEDIA/NAMES/AUDIO.I1=1;A", {}},
        {"no value", "CHG /MEDIA/NAMES/VIDEO.I1", {}},
        {"no path", "CHG =", {}},
        {"a mark alone", "CHG ", {}},
        {"another mark", "CHGX /MEDIA/NAMES/VIDEO.I1=1;A", {}},
        {"a mark in another case", "chg /MEDIA/NAMES/VIDEO.I1=1;A", {}},
        {"a blank before the mark", " CHG /MEDIA/NAMES/VIDEO.I1=1;A", {}},
        {"a method that worked", "mO /MEDIA/XP/VIDEO:switch=OK", {}},
        {"an error that nobody caused", "pE /.Nothing %E002:Not exists", {}},
        {"closing what was not open", "}", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ConnectedDevice device;
        EXPECT_EQ(device.hear(c.line + "\n"), c.events);
        EXPECT_THAT(device.sent, IsEmpty());
    }
}

TEST(LW3Parser, LosesTheResolutionWithTheSignal)
{
    ConnectedDevice device;
    const std::string signal = "CHG /MEDIA/PORTS/VIDEO/I1/STATUS.SignalPresent=";
    const std::string resolution = "CHG /MEDIA/PORTS/VIDEO/I1/STATUS.ActiveResolution=";
    EXPECT_THAT(device.hear(signal + "true\n" + resolution + "1080p\n" + signal + "true\n"),
        ElementsAre("input 0 present ", "input 0 present 1080p"));
    EXPECT_THAT(device.hear(signal + "false\n" + signal + "false\n"), ElementsAre("input 0 absent "));
    EXPECT_THAT(device.hear(signal + "true\n"), ElementsAre("input 0 present "));
    EXPECT_THAT(device.hear(resolution + "1080p\n"), ElementsAre("input 0 present 1080p"));
}

TEST(LW3Parser, NamesTheModelAndThePortsItWasNotTold)
{
    struct Case {
        const char* name;
        std::string lines;
        std::string beginning;
    };
    const Case cases[] = {
        {"nothing", "", R"("Lightware MX2" [In 1|In 2|Last] [Only])"},
        {"an empty product name", "pr /.ProductName=\n", R"("Lightware MX2" [In 1|In 2|Last] [Only])"},
        {"a writable one, twice", "pw /.ProductName=A\npw /.ProductName=B=C\n",
            R"("B=C" [In 1|In 2|Last] [Only])"},
        {"an empty name", "pw /MEDIA/NAMES/VIDEO.I2=1;\n", R"("Lightware MX2" [In 1||Last] [Only])"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Device device;
        device.hear(c.lines
            + "pw /MEDIA/NAMES/VIDEO.O1=1;Only\npw /MEDIA/NAMES/VIDEO.I3=1;Last\n"
              "pr /MEDIA/XP/VIDEO.DestinationConnectionStatus=I3\n");
        EXPECT_THAT(
            device.wait(600ms), ElementsAre("connected \"Saved name\" " + c.beginning + " routes 0=2"));
    }
}

TEST(LW3Parser, NeverConnectsWithoutNamesOfBothSidesAndRoutes)
{
    for (const auto& greeting : {std::string(), matrix, nameList + locksOnly,
             "pw /MEDIA/NAMES/VIDEO.I1=1;A\n" + matrix, "pw /MEDIA/NAMES/VIDEO.O1=1;A\n" + matrix}) {
        Device device;
        EXPECT_THAT(device.hear(greeting + "{0001\n}\n"), IsEmpty());
        EXPECT_THAT(device.wait(1h), IsEmpty());
    }
}

TEST(LW3Parser, ReadsTheMatrixAgainAfterARefusal)
{
    struct Case {
        const char* name;
        std::string lines;
        Texts events;
        int readings;
    };
    // 0001 is a route, 0002 a lock, 0003 a rename.
    const Case cases[] = {
        {"a route", "{0001\nmE /MEDIA/XP/VIDEO:switch %E006:Access denied\n}",
            {"refused Route refused: E006:Access denied"}, 1},
        {"a lock", "{0002\nmF %E4\n}", {"refused Lock refused: E4"}, 1},
        {"a name", "{0003\npE /MEDIA/NAMES/VIDEO.I1 %E006:50%%\n}", {"refused Rename refused: E006:50"}, 1},
        {"no percent sign", "{0001\nmE No\n}", {"refused Route refused: mE No"}, 1},
        {"nothing behind it", "{0001\nmE %\n}", {"refused Route refused: mE "}, 1},
        {"two errors", "{0001\nmE %1\nmE %2\n}", {"refused Route refused: 1", "refused Route refused: 2"}, 2},
        {"another signature", "{0004\nmE %No\n}", {}, 0},
        {"a signature with a blank", "{0001 \nmE %No\n}", {}, 0},
        {"outside a block", "{0001\n}\nmE %No", {}, 0},
        {"a signature that was answered before", "{0001\n}\n{0001\nmE %No\n}", {}, 0},
        {"a block that another one cuts short", "{0001\n{0004\nmE %No\n}\n{0001\nmE %Now\n}",
            {"refused Route refused: Now"}, 1},
        {"other errors", "{0001\n-E %No\nnE %No\noE %No\npE\n}", {}, 0},
        {"success", "{0001\nmO /MEDIA/XP/VIDEO:switch=OK\n}", {}, 0},
        {"a change inside, and then the error",
            "{0001\nCHG /MEDIA/XP/VIDEO.DestinationConnectionStatus=I2\nmE %No\n}",
            {"route 0:0=1", "refused Route refused: No"}, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ConnectedDevice device;
        EXPECT_EQ(device.parser.registerCommand(LW3Parser::Command::route), "0001");
        EXPECT_EQ(device.parser.registerCommand(LW3Parser::Command::lock), "0002");
        EXPECT_EQ(device.parser.registerCommand(LW3Parser::Command::rename), "0003");
        EXPECT_EQ(device.hear(c.lines + "\n"), c.events);
        std::string questions;
        for (int i = 0; i < c.readings; ++i)
            questions += matrixQuestion;
        EXPECT_EQ(device.allSent(), questions);
    }
}

TEST(LW3Parser, TellsEverythingOnceWhenItReadsAgain)
{
    ConnectedDevice device;
    const Texts allRoutes{"route 0:0=0", "route 0:1=1", "route 0:2=none"};
    const Texts allLocks{"unlock 0", "lock 1", "unlock 2"};
    device.parser.resyncFromSendFailure();
    EXPECT_THAT(device.takeSent(), ElementsAre(matrixQuestion));
    EXPECT_EQ(device.hear(routesOnly), allRoutes);
    // Until the locks have come as well, every list is told whole.
    EXPECT_EQ(device.hear(routesOnly), allRoutes);
    EXPECT_EQ(device.hear(locksOnly), allLocks);
    EXPECT_THAT(device.hear(matrix + matrix), IsEmpty());

    device.parser.resyncFromSendFailure();
    EXPECT_EQ(device.hear(locksOnly), allLocks);
    device.parser.resyncFromSendFailure();
    EXPECT_EQ(device.hear(locksOnly), allLocks);
    EXPECT_EQ(device.hear(routesOnly), allRoutes);
    EXPECT_THAT(device.hear(matrix), IsEmpty());
}

TEST(LW3Parser, TellsOfTheSurplusOfAListWhenItReadsAgain)
{
    ConnectedDevice device;
    device.parser.resyncFromSendFailure();
    EXPECT_THAT(device.hear("pr /MEDIA/XP/VIDEO.DestinationConnectionStatus=I1;I2;0;\n"
                            "pr /MEDIA/XP/VIDEO.DestinationPortStatus=T;L;T;\n"),
        ElementsAre("route 0:0=0", "route 0:1=1", "route 0:2=none", "route 0:3=none", "unlock 0", "lock 1",
            "unlock 2", "unlock 3"));
}

TEST(LW3Parser, ReadsNothingAgainBeforeItIsConnected)
{
    Device device;
    device.takeSent();
    device.parser.resyncFromSendFailure();
    EXPECT_EQ(device.parser.registerCommand(LW3Parser::Command::route), "0001");
    EXPECT_THAT(device.hear("{0001\nmE %No\n}\n"), ElementsAre("refused Route refused: No"));
    EXPECT_THAT(device.sent, IsEmpty());
}

TEST(LW3Parser, CountsSignaturesAndBeginsAnewAfterTheLast)
{
    Device device;
    QByteArrayList signatures;
    for (int i = 0; i < 65537; ++i)
        signatures.append(device.parser.registerCommand(LW3Parser::Command::lock));
    EXPECT_EQ(signatures.at(0), "0001");
    EXPECT_EQ(signatures.at(0x0A1F - 1), "0A1F");
    EXPECT_EQ(signatures.at(65534), "FFFF");
    EXPECT_EQ(signatures.at(65535), "0000");
    EXPECT_EQ(signatures.at(65536), "0001");
}

TEST(LW3Parser, KeepsWhatStandsBeforeAName)
{
    Device device;
    device.hear("pw /MEDIA/NAMES/VIDEO.I1=7;Cam;2\npw /MEDIA/NAMES/VIDEO.I1=Plain\n"
                "pw /MEDIA/NAMES/VIDEO.O1=;A\npw /MEDIA/NAMES/VIDEO.O2=a b;A\n"
                "pw /MEDIA/NAMES/VIDEO.I9223372036854775807=9;A\n");
    EXPECT_EQ(device.parser.namePrefix(PortKind::source, 0), "7");
    EXPECT_EQ(device.parser.namePrefix(PortKind::destination, 0), "");
    EXPECT_EQ(device.parser.namePrefix(PortKind::destination, 1), "a b");
    for (const qint64 unknown : {qint64(1), qint64(-1), std::numeric_limits<qint64>::max() - 1})
        EXPECT_EQ(device.parser.namePrefix(PortKind::source, unknown), "1");
}

TEST(LW3Parser, AsksAndAllocatesNothingByANumberAlone)
{
    Device device;
    device.takeSent();
    for (const auto* const number : {"65537", "999999999", "9223372036854775807", "99999999999999999999"})
        device.hear("pw /MEDIA/NAMES/VIDEO.I" + std::string(number) + "=1;A\npw /MEDIA/NAMES/VIDEO.O" + number
            + "=1;A\n");
    device.hear(matrix);
    EXPECT_THAT(device.wait(1h), IsEmpty());
    EXPECT_THAT(device.sent, IsEmpty());
    device.hear("pw /MEDIA/NAMES/VIDEO.I65536=1;A\npw /MEDIA/NAMES/VIDEO.O65536=1;A\n");
    const auto events = device.wait(600ms);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_THAT(events.front(), testing::HasSubstr("|Out 65535|A] "));
    EXPECT_THAT(
        device.takeSent(), ElementsAre(testing::EndsWith("OPEN /MEDIA/PORTS/VIDEO/I65536/STATUS\r\n")));
}

TEST(LW3Parser, BearsFloods)
{
    ConnectedDevice device;
    // Were a byte searched twice, these would take hours.
    const std::string longLabel(1 << 20, 'x');
    for (const char byte : "CHG /MEDIA/NAMES/VIDEO.I1=1;" + longLabel)
        device.parser.ingest({&byte, 1});
    EXPECT_THAT(device.hear("\n"), ElementsAre("label source 0 " + longLabel));
    EXPECT_THAT(device.hear(std::string(1 << 20, '\n') + std::string(1 << 20, '\r')), IsEmpty());

    const std::string list = "CHG /MEDIA/XP/VIDEO.DestinationConnectionStatus=";
    const std::string manyItems(1'000'000, ';');
    EXPECT_THAT(device.hear(list + manyItems + "\n"), ElementsAre("route 0:0=none", "route 0:1=none"));
    device.parser.resyncFromSendFailure();
    EXPECT_EQ(device.hear(list + manyItems + "\n").size(), 65536U);
    EXPECT_THAT(device.hear(matrix), testing::SizeIs(6));

    device.sent.clear();
    std::string errors = "{0001\n";
    for (int i = 0; i < 10000; ++i)
        errors += "mE %No\n";
    EXPECT_EQ(device.parser.registerCommand(LW3Parser::Command::route), "0001");
    EXPECT_EQ(device.hear(errors + "}\n").size(), 10000U);
    EXPECT_EQ(device.sent.size(), 1U);
}

} // namespace

} // namespace corvane
