#include "LW3Device.h"

namespace corvane {

namespace {

using namespace lw3test;

TEST(LW3Parser, AsksForNamesAndMatrixAtOnceAndForSignalsWhenTheNamesHaveEnded)
{
    LW3Device device;
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
    LW3Device device;
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

TEST(LW3Parser, ConnectsToADeviceThatNeverFallsQuietFiveSecondsAfterItsStateWasWhole)
{
    LW3Device device;
    const auto keepBusy = [&](const std::string& lines, int times) {
        for (int i = 0; i < times; ++i) {
            device.hear(lines);
            EXPECT_THAT(device.wait(500ms), IsEmpty());
        }
    };
    keepBusy(nameList, 20);
    keepBusy(matrix, 9);
    device.hear(matrix);
    EXPECT_THAT(device.wait(499ms), IsEmpty());
    EXPECT_THAT(device.wait(1ms), ElementsAre(connected));
}

TEST(LW3Parser, NeverConnectsWithoutNamesOfBothSidesAndRoutes)
{
    for (const auto& greeting : {std::string(), matrix, nameList + locksOnly,
             "pw /MEDIA/NAMES/VIDEO.I1=1;A\n" + matrix, "pw /MEDIA/NAMES/VIDEO.O1=1;A\n" + matrix}) {
        LW3Device device;
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
        ConnectedLW3Device device;
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
    ConnectedLW3Device device;
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

TEST(LW3Parser, ReadsNothingAgainBeforeItIsConnected)
{
    LW3Device device;
    device.takeSent();
    device.parser.resyncFromSendFailure();
    EXPECT_EQ(device.parser.registerCommand(LW3Parser::Command::route), "0001");
    EXPECT_THAT(device.hear("{0001\nmE %No\n}\n"), ElementsAre("refused Route refused: No"));
    EXPECT_THAT(device.sent, IsEmpty());
}

TEST(LW3Parser, CountsSignaturesAndBeginsAnewAfterTheLast)
{
    LW3Device device;
    QByteArrayList signatures;
    for (int i = 0; i < 65537; ++i)
        signatures.append(device.parser.registerCommand(LW3Parser::Command::lock));
    EXPECT_EQ(signatures.at(0), "0001");
    EXPECT_EQ(signatures.at(0x0A1F - 1), "0A1F");
    EXPECT_EQ(signatures.at(65534), "FFFF");
    EXPECT_EQ(signatures.at(65535), "0000");
    EXPECT_EQ(signatures.at(65536), "0001");
}

TEST(LW3Parser, AsksAndAllocatesNothingByANumberAlone)
{
    LW3Device device;
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

TEST(LW3Parser, KeepsNoMoreOfAListThanThereCanBePorts)
{
    ConnectedLW3Device device;
    const std::string list = "CHG /MEDIA/XP/VIDEO.DestinationConnectionStatus=";
    const std::string manyItems(1'000'000, ';');
    EXPECT_THAT(device.hear(list + manyItems + "\n"), ElementsAre("route 0:0=none", "route 0:1=none"));
    device.parser.resyncFromSendFailure();
    EXPECT_EQ(device.hear(list + manyItems + "\n").size(), 65536U);
    EXPECT_THAT(device.hear(matrix), testing::SizeIs(6));
}

} // namespace

} // namespace corvane
