#pragma once

#include "Drivers/LW3/LW3Parser.h"
#include "Drivers/ParserHarness.h"

namespace corvane::lw3test {

inline const std::string nameList = "pr /.ProductName=MX2-2x3\npw /MEDIA/NAMES/VIDEO.I1=1;Cam\n"
                                    "pw /MEDIA/NAMES/VIDEO.I2=1;VTR\npw /MEDIA/NAMES/VIDEO.O1=1;PGM\n"
                                    "pw /MEDIA/NAMES/VIDEO.O2=1;AUX\npw /MEDIA/NAMES/VIDEO.O3=1;MON\n";
inline const std::string routesOnly = "pr /MEDIA/XP/VIDEO.DestinationConnectionStatus=I1;I2;0\n";
inline const std::string locksOnly = "pr /MEDIA/XP/VIDEO.DestinationPortStatus=T00AA;L00AA;T00AA\n";
inline const std::string matrix =
    "pr /MEDIA/XP/VIDEO.SourcePortCount=2\n" + routesOnly + locksOnly + "m- /MEDIA/XP/VIDEO:switch\n";
inline const std::string connected =
    "connected lightware \"Saved name\" \"MX2-2x3\" [Cam|VTR] [PGM|AUX|MON] routes 0=0 1=1 locked 1";

inline const std::string firstQuestions =
    "GET /.ProductName\r\nGET /MEDIA/NAMES/VIDEO.*\r\nGET /MEDIA/XP/VIDEO.*\r\n";
inline const std::string matrixQuestion = "GET /MEDIA/XP/VIDEO.*\r\n";
inline const std::string statusQuestions = "OPEN /MEDIA/XP/VIDEO\r\nOPEN /MEDIA/NAMES/VIDEO\r\n"
                                           "GET /MEDIA/PORTS/VIDEO/I1/STATUS.SignalPresent\r\n"
                                           "GET /MEDIA/PORTS/VIDEO/I1/STATUS.ActiveResolution\r\n"
                                           "OPEN /MEDIA/PORTS/VIDEO/I1/STATUS\r\n"
                                           "GET /MEDIA/PORTS/VIDEO/I2/STATUS.SignalPresent\r\n"
                                           "GET /MEDIA/PORTS/VIDEO/I2/STATUS.ActiveResolution\r\n"
                                           "OPEN /MEDIA/PORTS/VIDEO/I2/STATUS\r\n";

/// A parser whose clock the test moves, and what it had to say.
struct LW3Device : ParserHarness<LW3Parser> {
    LW3Device() : ParserHarness(u"Saved name"_s)
    {
        parser.onSend([this](const QByteArray& lines) { sent.push_back(lines.toStdString()); });
        parser.begin();
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

    Texts sent;
};

struct ConnectedLW3Device : LW3Device {
    ConnectedLW3Device()
    {
        hear(nameList + matrix);
        EXPECT_THAT(wait(LW3Parser::stateQuiet), testing::ElementsAre(connected));
        sent.clear();
    }
};

} // namespace corvane::lw3test
