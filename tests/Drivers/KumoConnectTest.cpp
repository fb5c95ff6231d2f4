#include "KumoDriverFixture.h"
#include "support/LoopbackHttpServer.h"

namespace corvane {

namespace {

using namespace std::chrono_literals;
using driverEvent::Connected;
using driverEvent::Error;
using driverEvent::RouteChanged;
using driverEvent::Status;
using Events = std::vector<RouterDriverEvent>;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(KumoDriverTest, ReadsTheWholeDeviceOneValueAtATimeBeforeItIsConnected)
{
    kumo.isHeld = true;
    make();
    startConnecting();
    for (; !kumo.held.empty(); release())
        ASSERT_EQ(kumo.held.size(), 1);

    QStringList expected;
    for (const auto& parameter : {sourceCount, destinationCount, nameOf(u"Source1"_s), nameOf(u"Source2"_s),
             nameOf(u"Destination1"_s), nameOf(u"Destination2"_s), statusOf(1), statusOf(2)})
        expected.append(reading(parameter));
    EXPECT_EQ(kumo.requests, expected);

    RouterState state;
    state.deviceName = u"Truck"_s;
    state.model = u"KUMO 2×2"_s;
    state.vendor = RouterVendor::ajaKumo;
    state.sources = {{0, PortKind::source, u"CAM"_s}, {1, PortKind::source, u"VTR"_s}};
    state.destinations = {{0, PortKind::destination, u"PGM"_s}, {1, PortKind::destination, u"AUX"_s}};
    state.levels = {{0, u"Video"_s, LevelKind::video}};
    state.routing = {{0, {{0, 1}}}};
    EXPECT_EQ(reported,
        (Events{Status{u"Contacting KUMO at 10.1.2.3…"_s}, Status{u"Reading routing and labels…"_s},
            Connected{state}}));
}

TEST_F(KumoDriverTest, GivesUpWithTheReasonWhenTheSizeCannotBeRead)
{
    struct Case {
        int status;
        QByteArray value;
        QString expected;
    };
    const Case cases[] = {
        {404, {}, u"KUMO didn't answer: Connection error: HTTP 404"_s},
        {204, {}, u"KUMO didn't answer: Connection error: HTTP 204"_s},
        {0, {}, u"KUMO didn't answer: Nobody there"_s},
        {200, "<html>", u"KUMO didn't answer: The reply is not JSON, from byte 10"_s},
        {200, "\"\"", u"KUMO didn't answer: Protocol error: {id} returned no number"_s},
        {200, "0", u"KUMO reported a zero-sized matrix."_s},
        {200, "-4", u"KUMO reported a zero-sized matrix."_s},
    };
    for (const auto& parameter : {sourceCount, destinationCount}) {
        const auto whole = kumo.bodies;
        for (const auto& c : cases) {
            kumo.set(parameter, c.value);
            kumo.statuses = {{reading(parameter), c.status}};
            make();
            startConnecting();
            EXPECT_EQ(
                reported.back(), RouterDriverEvent(Error{QString(c.expected).replace(u"{id}"_s, parameter)}));
            forget();
            queue.advance(1h);
            EXPECT_THAT(kumo.requests, IsEmpty());
        }
        kumo.bodies = whole;
    }
}

TEST_F(KumoDriverTest, AsksNothingWithoutAUsableAddress)
{
    const std::pair<QString, QString> cases[] = {
        {u""_s, u"No address for this router. Edit it and set a host."_s},
        {u"10.1.2.3/no host"_s,
            u"KUMO didn't answer: Protocol error: Bad URL for config?action=get&paramid=eParamID_NumberOfSources"_s},
    };
    for (const auto& [host, message] : cases) {
        connection.host = host;
        make();
        startConnecting();
        EXPECT_EQ(reported.back(), RouterDriverEvent(Error{message}));
        EXPECT_THAT(kumo.requests, IsEmpty());
    }
}

TEST_F(KumoDriverTest, MakesDoWithWhatCanBeReadOfNamesAndRouting)
{
    kumo.set(nameOf(u"Source1"_s), "\"\"");
    kumo.set(nameOf(u"Source2"_s), "7");
    kumo.set(nameOf(u"Destination1"_s), "<html>");
    kumo.statuses = {{reading(nameOf(u"Destination2"_s)), 404}, {reading(statusOf(1)), 0}};
    kumo.set(statusOf(2), "\"1\"");
    make();
    startConnecting();
    const auto state = connectedState();
    EXPECT_EQ(state.sources.at(0).label, u"In 1"_s);
    EXPECT_EQ(state.sources.at(1).label, u"7"_s);
    EXPECT_EQ(state.destinations.at(0).label, u"Out 1"_s);
    EXPECT_EQ(state.destinations.at(1).label, u"Out 2"_s);
    EXPECT_EQ(state.routing.value(0), (LevelRouting{{1, 0}}));
    kumo.statuses.clear();
    queue.advance(2s);
    EXPECT_EQ(reported.back(), RouterDriverEvent(RouteChanged{0, 0, 1}));
}

TEST_F(KumoDriverTest, StaysWithinBoundsWhenTheSizeIsGarbled)
{
    kumo.set(sourceCount, "9223372036854775807");
    make();
    startConnecting();
    EXPECT_EQ(connectedState().sources.size(), 4096);
}

TEST_F(KumoDriverTest, SaysNothingMoreWhenDisconnectedAtAnyPointOfTheReading)
{
    for (int answered = 0; answered < 8; ++answered) {
        SCOPED_TRACE(answered);
        kumo.isHeld = true;
        make();
        startConnecting();
        for (int i = 0; i < answered; ++i)
            release();
        forget();
        disconnect();
        release();
        EXPECT_EQ(returned, 2);
        queue.advance(1h);
        EXPECT_EQ(queue.waitingCount(), 0);
        EXPECT_THAT(reported, IsEmpty());
        EXPECT_THAT(kumo.requests, IsEmpty());
    }
}

TEST_F(KumoDriverTest, TellsHowFarTheReadingHasCome)
{
    std::vector<std::optional<double>> seen;
    make();
    driver->onReadingProgress([&](std::optional<double> fraction) { seen.push_back(fraction); });
    startConnecting();
    EXPECT_THAT(
        seen, ElementsAre(0, 1.0 / 6, 2.0 / 6, 3.0 / 6, 4.0 / 6, 5.0 / 6, 1, std::optional<double>()));
}

TEST_F(KumoDriverTest, TellsNothingOfAReadingThatWasCalledOff)
{
    std::vector<std::optional<double>> seen;
    kumo.isHeld = true;
    make();
    driver->onReadingProgress([&](std::optional<double> fraction) { seen.push_back(fraction); });
    startConnecting();
    for (int i = 0; i < 3; ++i)
        release();
    disconnect();
    while (!kumo.held.empty())
        release();
    EXPECT_EQ(returned, 2);
    EXPECT_THAT(seen, ElementsAre(0, 1.0 / 6));
}

TEST_F(KumoDriverTest, SpeaksHttpOverTheNetworkAndWaitsEightSecondsForAnAnswer)
{
    LoopbackHttpServer server;
    server.answer = [](const auto&) { return LoopbackHttpServer::reply("200 OK", R"({"value":"1"})"); };
    connection.host = u"127.0.0.1"_s;
    connection.port = server.port();
    use(std::make_shared<KumoDriver>(connection, queue));
    startConnecting();
    ASSERT_TRUE(pumpUntil([this] { return returned == 1; }, {&queue}));
    EXPECT_EQ(connectedState().routing.value(0), (LevelRouting{{0, 0}}));

    server.answer = [](const auto&) { return QByteArray(); };
    rename(u"A&B=+?/# é%"_s, 0, PortKind::source);
    ASSERT_TRUE(pumpUntil([&] { return server.requests.size() == 6; }, {&queue}));
    EXPECT_EQ(server.requests.back().split(' ').at(1),
        "/config?action=set&paramid=eParamID_XPT_Source1_Line_1&value=A%26B%3D%2B%3F%2F%23%20%C3%A9%25");
    queue.advance(8s - 1ms);
    EXPECT_THAT(thrown, IsEmpty());
    queue.advance(1ms);
    ASSERT_TRUE(pumpUntil([this] { return !thrown.empty(); }, {&queue}));
    EXPECT_THAT(thrown, ElementsAre("Timed out after 8 seconds"));

    // A look that is under way must end before the queue does.
    disconnect();
    queue.advance(8s);
}

} // namespace

} // namespace corvane
