#include "LW3Device.h"

namespace corvane {

namespace {

using namespace lw3test;

TEST(LW3Parser, GathersSignalsInSilenceAndTellsOfThemWithTheState)
{
    LW3Device device;
    device.hear(nameList + matrix
        + "pr /MEDIA/PORTS/VIDEO/I1/STATUS.SignalPresent=true\n"
          "pr /MEDIA/PORTS/VIDEO/I1/STATUS.ActiveResolution=1920x1080p60\n"
          "pr /MEDIA/PORTS/VIDEO/I2/STATUS.SignalPresent=false\n"
          "pr /MEDIA/PORTS/VIDEO/I3/STATUS.SignalPresent=true\n"
          "pr /MEDIA/PORTS/VIDEO/I9223372036854775807/STATUS.SignalPresent=true\n");
    EXPECT_THAT(device.wait(600ms), ElementsAre(connected + " input 0 present 1920x1080p60 input 1 absent "));
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
    const auto run = [&](const Texts& first, const Texts& second) {
        LW3Device device;
        EXPECT_EQ(device.parser.registerCommand(LW3Parser::Command::route), "0001");
        device.hearAll(first);
        device.wait(600ms);
        device.hearAll(second);
        EXPECT_EQ(device.log.all(), expected);
        EXPECT_EQ(device.allSent(), firstQuestions + statusQuestions + matrixQuestion);
    };
    forEachCut(greeting, [&](const Texts& pieces) { run(pieces, {news}); });
    forEachCut(withLineEnds(news, "\r\n"),
        [&](const Texts& pieces) { run({withLineEnds(greeting, "\r\n")}, pieces); });
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
        {"signs that need no backslash", names + "I1=1;a=b:c ", {"label source 0 a=b:c "}},
        {"signs behind a backslash", names + R"(I1=1;\(A\) \{\%\} \#1 \\n)",
            {R"(label source 0 (A) {%} #1 \n)"}},
        {"line breaks and tabs", names + R"(I1=1;a\rb\nc\td)", {"label source 0 a\rb\nc\td"}},
        {"signs of a device that does not escape", names + R"(I1=1;{%} #1 \x \)",
            {R"(label source 0 {%} #1 \x \)"}},
        {"an escaped resolution", input + R"(1/STATUS.ActiveResolution=4K \(UHD\))",
            {"input 0 absent 4K (UHD)"}},
        {"a name of any script", names + "I1=1;\xf0\x9f\x8e\xa5 カメラ", {"label source 0 🎥 カメラ"}},
        {"a name that is not UTF-8", names + "I1=1;K\xf6ln", {"label source 0 K\ufffdln"}},
        {"a port that is not there", names + "O4=1;Late", {}},
        {"a number with a sign", names + "I+2=1;B", {"label source 1 B"}},
        {"port zero", names + "I0=1;A", {}},
        {"a negative port", names + "I-1=1;A", {}},
        {"a key of no side", names + "X1=1;A", {}},
        {"a key without a number", names + "I=1;A", {}},
        {"a key with more behind", names + "I1a=1;A", {}},
        {"an empty key", names + "=1;A", {}},
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
        {"more than there are outputs", routes + "I1;I2;0;I2", {}},
        {"inputs of any number", routes + "I9223372036854775807;I9223372036854775808",
            {"route 0:0=9223372036854775806", "route 0:1=none"}},
        {"an empty list", routes, {"route 0:0=none"}},

        {"locks that are what they were", locks + "T00AA;L00AA;T00AA", {}},
        {"locks that changed", locks + "L;T", {"lock 0", "unlock 1"}},
        {"only an L that comes first locks", locks + " L;l00;TL;MLL", {"unlock 1"}},
        {"a lock beyond the outputs", locks + "T;L;T;L", {}},
        {"an empty lock list", locks, {}},

        {"a signal", input + "1/STATUS.SignalPresent=true", {"input 0 present "}},
        {"in any case", input + "1/STATUS.SignalPresent=True", {"input 0 present "}},
        {"no signal", input + "2/STATUS.SignalPresent=yes", {"input 1 absent "}},
        {"a resolution", input + "2/STATUS.ActiveResolution=720p50", {"input 1 absent 720p50"}},
        {"no resolution", input + "2/STATUS.ActiveResolution=", {"input 1 absent "}},
        {"another property", input + "2/STATUS.Colour=blue", {}},
        {"a property of no name", input + "2/STATUS.=true", {}},
        {"an input that is not there", input + "3/STATUS.SignalPresent=true", {}},
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
        ConnectedLW3Device device;
        EXPECT_EQ(device.hear(c.line + "\n"), c.events);
        EXPECT_THAT(device.sent, IsEmpty());
    }
}

TEST(LW3Parser, LosesTheResolutionWithTheSignal)
{
    ConnectedLW3Device device;
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
        {"an escaped one", "pr /.ProductName=MX\\(2\\)\n", R"x("MX(2)" [In 1|In 2|Last] [Only])x"},
        {"routes, locks and signals of ports that are not there",
            "pr /MEDIA/XP/VIDEO.DestinationConnectionStatus=I3;I1;I2\n"
            "pr /MEDIA/XP/VIDEO.DestinationPortStatus=T;L\n"
            "pr /MEDIA/PORTS/VIDEO/I4/STATUS.SignalPresent=true\n",
            R"("Lightware MX2" [In 1|In 2|Last] [Only])"},
        {"an empty name", "pw /MEDIA/NAMES/VIDEO.I2=1;\n", R"("Lightware MX2" [In 1||Last] [Only])"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        LW3Device device;
        device.hear(c.lines
            + "pw /MEDIA/NAMES/VIDEO.O1=1;Only\npw /MEDIA/NAMES/VIDEO.I3=1;Last\n"
              "pr /MEDIA/XP/VIDEO.DestinationConnectionStatus=I3\n");
        EXPECT_THAT(device.wait(600ms),
            ElementsAre("connected lightware \"Saved name\" " + c.beginning + " routes 0=2"));
    }
}

TEST(LW3Parser, KeepsWhatStandsBeforeAName)
{
    LW3Device device;
    device.hear("pw /MEDIA/NAMES/VIDEO.I1=7;Cam;2\npw /MEDIA/NAMES/VIDEO.I1=Plain\n"
                "pw /MEDIA/NAMES/VIDEO.O1=;A\npw /MEDIA/NAMES/VIDEO.O2=a b;A\n"
                "pw /MEDIA/NAMES/VIDEO.I9223372036854775807=9;A\n");
    EXPECT_EQ(device.parser.namePrefix(PortKind::source, 0), "7");
    EXPECT_EQ(device.parser.namePrefix(PortKind::destination, 0), "");
    EXPECT_EQ(device.parser.namePrefix(PortKind::destination, 1), "a b");
    for (const qint64 unknown : {qint64(1), qint64(-1), std::numeric_limits<qint64>::max() - 1})
        EXPECT_EQ(device.parser.namePrefix(PortKind::source, unknown), "1");
}

} // namespace

} // namespace corvane
