#include "Drivers/LW3/LightwareDriver.h"
#include "Drivers/DriverHarness.h"
#include "emulator/LW3Emulator.h"

namespace corvane {

namespace {

using emulator::EmulatedMatrix;
using emulator::LW3Emulator;
using emulator::LW3Quirks;
using emulator::Side;

const std::string reading = "status Reading router state…";
const std::string connectedTo4x2 =
    "connected lightware \"Studio\" \"MX2-4x2-HDMI20\" [Input 1|Input 2|Input 3|Input 4]"
    " [Output 1|Output 2] routes 0=0 1=1 input 0 present 1920x1080p60"
    " input 1 present 1920x1080p60 input 2 present 1920x1080p60 input 3 absent ";
const std::string matrixQuestion = "GET /MEDIA/XP/VIDEO.*\r\n";

std::string questions(int inputs)
{
    auto text = "GET /.ProductName\r\nGET /MEDIA/NAMES/VIDEO.*\r\n" + matrixQuestion
        + "OPEN /MEDIA/XP/VIDEO\r\nOPEN /MEDIA/NAMES/VIDEO\r\n";
    for (int input = 1; input <= inputs; ++input) {
        const auto node = "/MEDIA/PORTS/VIDEO/I" + std::to_string(input) + "/STATUS";
        text +=
            "GET " + node + ".SignalPresent\r\nGET " + node + ".ActiveResolution\r\nOPEN " + node + "\r\n";
    }
    return text;
}

/// A matrix of four inputs and two outputs, and a driver on its way to it.
class LightwareDriverTest : public testing::Test {
protected:
    using Harness = DriverHarness<LightwareDriver>;

    static RouterConnection routerAt(const LW3Emulator& there)
    {
        RouterConnection router;
        router.name = u"Studio"_s;
        router.host = u"127.0.0.1"_s;
        router.port = there.port();
        return router;
    }

    std::unique_ptr<Harness> connecting(const LW3Emulator& there)
    {
        auto running = std::make_unique<Harness>(queue, routerAt(there));
        EXPECT_FALSE(outcome(running->driver->connect()));
        EXPECT_TRUE(running->pumpUntilSays(reading));
        running->settle();
        return running;
    }

    std::unique_ptr<Harness> connected()
    {
        auto running = connecting(device);
        running->advance(300ms);
        running->advance(600ms);
        EXPECT_THAT(running->log.takeNew(), ElementsAre(testing::_, reading, connectedTo4x2));
        alreadyHeard = device.receivedBytes().size();
        return running;
    }

    /// Far slower than the bytes come, so that none of them seems late.
    static void letTimePassUntilConnected(Harness& running)
    {
        for (int step = 0; step < 400 && running.log.all().size() < 3; ++step)
            running.advance(20ms);
    }

    /// What the matrix has heard since the driver connected.
    std::string heard() const { return device.receivedBytes().mid(alreadyHeard).toStdString(); }

    /// The same once the operation's effect has come back.
    std::string heardUntil(Harness& running, QCoro::Task<> operation, const std::string& effect)
    {
        EXPECT_FALSE(outcome(std::move(operation)));
        EXPECT_TRUE(running.pumpUntilSays(effect));
        running.settle();
        return heard();
    }

    ManualQueue queue;
    EmulatedMatrix matrix{4, 2};
    LW3Emulator device{matrix};
    qsizetype alreadyHeard = 0;
};

TEST_F(LightwareDriverTest, ReadsTheMatrixAndSubscribesToItsChanges)
{
    const auto running = connected();
    EXPECT_EQ(device.receivedBytes().toStdString(), questions(4));
    running->advance(1h);
    EXPECT_THAT(heard(), IsEmpty());
    EXPECT_THAT(running->log.takeNew(), IsEmpty());
}

TEST_F(LightwareDriverTest, ConnectsHoweverTheMatrixSpeaksAndItsWordsAreCut)
{
    struct Case {
        const char* name;
        LW3Quirks quirks;
        int pieceSize = 0;
    };
    const Case cases[] = {
        {"byte by byte", {}, 1},
        {"plain names", {.plainNames = true}},
        {"no locks", {.omitLocks = true}},
        {"semicolons behind lists", {.trailingSemicolon = true}},
        {"something else before names", {.namePrefix = "7a"}},
        {"errors of another kind", {.errorPrefix = "mF", .omitErrorCodes = true}, 7},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        device.quirks() = c.quirks;
        device.faults().pieceSize = c.pieceSize;
        const auto running = connecting(device);
        letTimePassUntilConnected(*running);
        EXPECT_EQ(running->log.all().back(), connectedTo4x2);
    }
}

TEST_F(LightwareDriverTest, SignsEachCommandAndSendsThemInOrder)
{
    const auto running = connected();
    const auto& driver = running->driver;
    device.quirks().callResult = "";
    struct Case {
        std::function<QCoro::Task<>()> command;
        std::string lines;
        std::string effect;
    };
    const Case cases[] = {
        {[&] {
             return driver->takeAll({{0, 1, 2}, {5, 0, 3}});
         },
            "0001#CALL /MEDIA/XP/VIDEO:switch(I3:O2)\r\n0002#CALL /MEDIA/XP/VIDEO:switch(I4:O1)\r\n",
            "route 0:0=3"},
        {[&] { return driver->take(1, 1, 0); }, "0003#CALL /MEDIA/XP/VIDEO:switch(I2:O2)\r\n", "route 0:1=1"},
        {[&] { return driver->setLock(1, 0, true); }, "0004#CALL /MEDIA/XP/VIDEO:lockDestination(O2)\r\n",
            "lock 1"},
        {[&] { return driver->setLock(1, 7, false); }, "0005#CALL /MEDIA/XP/VIDEO:unlockDestination(O2)\r\n",
            "unlock 1"},
        {[&] { return driver->setLabel(u"A;B\nC"_s, 2, PortKind::source); },
            "0006#SET /MEDIA/NAMES/VIDEO.I3=1;A,B C\r\n", "label source 2 A,B C"},
        {[&] { return driver->setLabel(u"\r\nKöln %1#=:"_s, 1, PortKind::destination); },
            "0007#SET /MEDIA/NAMES/VIDEO.O2=1;  Köln \\%1\\#=:\r\n", "label destination 1   Köln %1#=:"},
        {[&] { return driver->setLabel(u""_s, 0, PortKind::source); },
            "0008#SET /MEDIA/NAMES/VIDEO.I1=1;\r\n", "label source 0 "},
    };
    std::string heardBefore;
    for (const auto& c : cases) {
        EXPECT_EQ(heardUntil(*running, c.command(), c.effect), heardBefore + c.lines);
        heardBefore += c.lines;
    }
    EXPECT_THAT(running->log.takeNew(),
        ElementsAre("route 0:1=2", "route 0:0=3", "route 0:1=1", "lock 1", "unlock 1", "label source 2 A,B C",
            "label destination 1   Köln %1#=:", "label source 0 "));
    EXPECT_EQ(matrix.source(0, 0), 3);
    EXPECT_FALSE(matrix.lockOwner(1));
}

TEST_F(LightwareDriverTest, HandsBackWhatTheMatrixPutsBeforeAName)
{
    device.quirks().namePrefix = "7a";
    const auto running = connected();
    EXPECT_EQ(heardUntil(*running, running->driver->setLabel(u"A"_s, 0, PortKind::destination),
                  "label destination 0 A"),
        "0001#SET /MEDIA/NAMES/VIDEO.O1=7a;A\r\n");
}

TEST_F(LightwareDriverTest, TellsOfAChangeOnceHoweverOftenAndWhereverItIsTold)
{
    const auto running = connected();
    device.quirks() = {.trailingSemicolon = true, .changesInsideBlock = true, .changeRepeats = 1000};
    heardUntil(*running, running->driver->takeAll({{0, 1, 0}, {0, 0, 1}}), "route 0:0=1");
    heardUntil(*running, running->driver->setLabel(u"A"_s, 0, PortKind::source), "label source 0 A");
    heardUntil(*running, running->driver->setLock(0, 0, true), "lock 0");
    EXPECT_THAT(
        running->log.takeNew(), ElementsAre("route 0:1=0", "route 0:0=1", "label source 0 A", "lock 0"));
}

TEST_F(LightwareDriverTest, SaysWhatWasRefusedAndReadsTheMatrixAgain)
{
    const auto running = connected();
    const auto& driver = running->driver;
    struct Case {
        const char* name;
        LW3Quirks quirks;
        std::function<QCoro::Task<>()> command;
        std::string refusal;
    };
    const Case cases[] = {
        {"a route", {}, [&] { return driver->take(2, 0, 0); }, "refused Route refused: E006:Access denied"},
        {"a lock", {.errorPrefix = "mF"}, [&] { return driver->setLock(0, 0, true); },
            "refused Lock refused: E006:Access denied"},
        {"a name", {}, [&] { return driver->setLabel(u"A"_s, 0, PortKind::source); },
            "refused Rename refused: E006:Access denied"},
        {"without codes", {.omitErrorCodes = true}, [&] { return driver->take(2, 0, 0); },
            "refused Route refused: mE /MEDIA/XP/VIDEO:switch Access denied"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        device.quirks() = c.quirks;
        device.faults().refuseNext = 1;
        EXPECT_THAT(heardUntil(*running, c.command(), c.refusal), testing::EndsWith(matrixQuestion));
        EXPECT_THAT(running->log.takeNew(),
            ElementsAre(c.refusal, "route 0:0=0", "route 0:1=1", "unlock 0", "unlock 1"));
    }
}

} // namespace

} // namespace corvane
