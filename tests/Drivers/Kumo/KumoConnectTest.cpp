#include "KumoDriverFixture.h"

namespace corvane {

namespace {

TEST_F(KumoDriverTest, ReadsTheDeviceHoweverItSpeaks)
{
    struct Case {
        const char* name;
        KumoQuirks quirks;
        int pieceSize = 0;
    };
    const Case cases[] = {
        {"numbers as texts", {}},
        {"numbers as numbers", {.numericValues = true}},
        {"a false content type", {.htmlContentType = true}},
        {"a connection for each answer", {.closeEachConnection = true}},
        {"byte by byte", {}, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        device.quirks() = c.quirks;
        device.faults().pieceSize = c.pieceSize;
        renew();
        connect();
        EXPECT_EQ(device.mostRequestsAtOnce(), 1);
    }
    EXPECT_EQ(device.receivedMessages().size(), std::ssize(cases) * 9);
    QByteArrayList parameters;
    for (const auto& message : device.receivedMessages().mid(0, 9))
        parameters << message.mid(message.indexOf("eParamID_") + 9);
    EXPECT_THAT(parameters,
        ElementsAre("NumberOfSources", "NumberOfDestinations", "XPT_Source1_Line_1", "XPT_Source2_Line_1",
            "XPT_Source3_Line_1", "XPT_Destination1_Line_1", "XPT_Destination2_Line_1",
            "XPT_Destination1_Status", "XPT_Destination2_Status"));
}

TEST_F(KumoDriverTest, SaysWhyTheSizeCannotBeRead)
{
    const std::string answered = "error KUMO didn't answer: ";
    const auto sources = u"eParamID_NumberOfSources"_s;
    const auto destinations = u"eParamID_NumberOfDestinations"_s;
    struct Case {
        const char* name;
        KumoQuirks quirks;
        std::string error;
    };
    const Case cases[] = {
        {"a login", {.loginRequired = true}, answered + "Connection error: HTTP 404"},
        {"a failure", {.failNext = 1}, answered + "Connection error: HTTP 500"},
        {"broken JSON", {.brokenJson = true}, answered + "The reply is not JSON, from byte 63"},
        {"no number", {.claims = {{sources, "\"\""}}},
            answered + "Protocol error: eParamID_NumberOfSources returned no number"},
        {"no second number", {.claims = {{destinations, "[]"}}},
            answered + "Protocol error: eParamID_NumberOfDestinations returned no number"},
        {"no sources", {.claims = {{sources, "0"}}}, "error KUMO reported a zero-sized matrix."},
        {"no destinations", {.claims = {{destinations, "\"-4\""}}},
            "error KUMO reported a zero-sized matrix."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        device.quirks() = c.quirks;
        renew();
        EXPECT_THAT(connecting(), ElementsAre(contacting, c.error));
        const auto asked = device.receivedMessages().size();
        queue.advance(1h);
        pumpUntilIdle({&queue});
        EXPECT_EQ(device.receivedMessages().size(), asked);
    }
    device.stopListening();
    device.dropClients();
    renew();
    EXPECT_THAT(connecting(), ElementsAre(contacting, answered + "Connection refused"));
}

TEST_F(KumoDriverTest, AsksNothingWithoutAUsableAddress)
{
    const std::string badAddress = "error KUMO didn't answer: Protocol error: Bad URL for "
                                   "config?action=get&paramid=eParamID_NumberOfSources";
    struct Case {
        QString host;
        qint64 port;
        std::string error;
    };
    for (const auto& c : {Case{u""_s, 80, "error No address for this router. Edit it and set a host."},
             Case{u"127.0.0.1/no host"_s, 80, badAddress}, Case{u"127.0.0.1"_s, -1, badAddress},
             Case{u"127.0.0.1"_s, device.port() + 65536, badAddress}}) {
        saved.host = c.host;
        saved.port = c.port;
        renew();
        EXPECT_EQ(connecting().back(), c.error);
    }
    EXPECT_THAT(device.receivedMessages(), IsEmpty());
}

TEST_F(KumoDriverTest, TellsHowFarTheReadingHasComeAndBelievesNoGarbledSize)
{
    struct Case {
        const char* name;
        KumoQuirks quirks;
        double values;
    };
    const Case cases[] = {
        {"3 sources, 2 destinations", {}, 7},
        {"many sources", {.claims = {{u"eParamID_NumberOfSources"_s, "9223372036854775807"}}}, 4096 + 4},
        {"many destinations", {.claims = {{u"eParamID_NumberOfDestinations"_s, "4097"}}}, 3 + 8192},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        device.quirks() = c.quirks;
        renew();
        std::vector<std::optional<double>> seen;
        driver->onReadingProgress([&](std::optional<double> fraction) { seen.push_back(fraction); });
        startConnecting();
        ASSERT_TRUE(pump([&] { return seen.size() == 9 || (c.values > 7 && seen.size() == 2); }));
        std::vector<std::optional<double>> expected{0};
        while (expected.size() < seen.size())
            expected.emplace_back(static_cast<double>(expected.size()) / c.values);
        if (c.values == 7)
            expected.back().reset();
        EXPECT_EQ(seen, expected);
        finish();
        EXPECT_EQ(seen, expected) << "called off";
    }
}

TEST_F(KumoDriverTest, DoesWithoutTheNamesAndRoutesThatTheDeviceFailsToTell)
{
    device.faults().hold = true;
    startConnecting();
    for (int asked = 1; asked <= 9; ++asked) {
        // The answer to what is asked next is made at once.
        device.quirks().failNext = asked == 3 || asked == 7 || asked == 8 ? 1 : 0;
        device.quirks().brokenJson = asked == 5;
        ASSERT_TRUE(pumpUntilAsked(asked));
        device.release();
    }
    EXPECT_TRUE(pumpUntilOver(1));
    EXPECT_EQ(log->takeNew().back(),
        "connected ajaKumo \"Stage\" \"KUMO 3×2\" [In 1|Input 2|In 3] [Output 1|Out 2] routes 1=1");
    device.faults().hold = false;
    EXPECT_THAT(look(), ElementsAre("route 0:0=0"));
}

TEST_F(KumoDriverTest, TakesAnyValueForANameAndKeepsARouteThatTheDeviceDoesNotTell)
{
    device.quirks().claims = {{u"eParamID_XPT_Source1_Line_1"_s, "7"},
        {u"eParamID_XPT_Source2_Line_1"_s, "\"\""}, {u"eParamID_XPT_Source3_Line_1"_s, "true"},
        {u"eParamID_XPT_Destination1_Status"_s, "\"3\""}, {u"eParamID_XPT_Destination2_Status"_s, "-1"}};
    EXPECT_EQ(connecting().back(),
        "connected ajaKumo \"Stage\" \"KUMO 3×2\" [7|In 2|In 3] [Output 1|Output 2] routes 0=2");
    for (const auto* const value : {"0", "-1", "\"\"", "<html>", "3"}) {
        device.quirks().claims = {{u"eParamID_XPT_Destination1_Status"_s, value}};
        matrix.setRoutes({{0, 1, 0}});
        const auto expected =
            *value == '0' ? std::vector<std::string>{"route 0:1=0"} : std::vector<std::string>{};
        EXPECT_EQ(look(), expected) << value;
    }
}

TEST_F(KumoDriverTest, CanBeDisconnectedAtAnyPointOfTheReading)
{
    for (int answered = 0; answered < 9; ++answered) {
        SCOPED_TRACE(answered);
        renew();
        device.faults().hold = true;
        const auto before = device.receivedMessages().size();
        startConnecting();
        for (int asked = 1; asked <= answered + 1; ++asked) {
            ASSERT_TRUE(pumpUntilAsked(before + asked));
            if (asked <= answered)
                device.release();
        }
        const auto reported = log->all().size();
        disconnect();
        EXPECT_TRUE(pumpUntilOver(1));
        device.release();
        EXPECT_TRUE(pumpUntilOver(2));
        EXPECT_EQ(log->all().size(), reported);
        EXPECT_EQ(device.receivedMessages().size(), before + answered + 1);
    }
}

} // namespace

} // namespace corvane
