#include "RawClient.h"

#include "emulator/KumoEmulator.h"

#include <gmock/gmock.h>

using namespace corvane;
using namespace corvane::emulator;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

QByteArray request(const QByteArray& query)
{
    return "GET /config?action=" + query + " HTTP/1.1\r\nHost: 127.0.0.1\r\nAccept: */*\r\n\r\n";
}

QByteArray response(const QByteArray& length, const QByteArray& body)
{
    return "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: " + length
        + "\r\nConnection: keep-alive\r\n\r\n" + body;
}

constexpr auto askFirst = "get&paramid=eParamID_XPT_Destination1_Status";
constexpr auto takeThirdToFirst = "set&paramid=eParamID_XPT_Destination1_Status&value=3";

class KumoEmulatorTest : public testing::Test {
protected:
    /// Asks on a connection of its own and takes the answer up to the end of its first line.
    QByteArray statusOf(const QByteArray& query)
    {
        RawClient client(kumo);
        client.send(request(query));
        EXPECT_TRUE(pumpUntil([&] { return client.received().contains("\r\n"); }));
        return client.received().left(client.received().indexOf("\r\n"));
    }

    /// Asks on a connection of its own and takes what stands behind the head.
    QByteArray bodyOf(const QByteArray& query)
    {
        RawClient client(kumo);
        client.send(request(query));
        EXPECT_TRUE(pumpUntil([&] { return client.received().endsWith("}"); }));
        return client.received().mid(client.received().indexOf("\r\n\r\n") + 4);
    }

    EmulatedMatrix matrix{4, 2};
    KumoEmulator kumo{matrix};
};

TEST_F(KumoEmulatorTest, AnswersOneRequestAfterTheOtherOnOneConnection)
{
    const auto first =
        response("71", R"({"name":"eParamID_XPT_Destination1_Status","value":"1","value_name":""})");
    RawClient client(kumo);
    client.send(request(askFirst));
    EXPECT_HEARS(client, first);
    for (const char byte : request(askFirst)) {
        client.send(QByteArray(1, byte));
        pumpUntilIdle();
    }
    EXPECT_HEARS(client, first);
    EXPECT_EQ(kumo.clientCount(), 1);
    EXPECT_EQ(kumo.mostRequestsAtOnce(), 1);
    const QByteArray noted = "GET /config?action=get&paramid=eParamID_XPT_Destination1_Status";
    EXPECT_THAT(kumo.receivedMessages(), ElementsAre(noted, noted));
}

TEST_F(KumoEmulatorTest, ReadsAndSetsItsParameters)
{
    matrix.setRoutes({{.destination = 1, .source = noSource}});
    struct Case {
        const char* query;
        const char* value;
    };
    const Case cases[] = {
        {"get&paramid=eParamID_NumberOfSources", R"("4")"},
        {"get&paramid=eParamID_NumberOfDestinations", R"("2")"},
        {"get&paramid=eParamID_XPT_Source4_Line_1", R"("Input 4")"},
        {"get&paramid=eParamID_XPT_Destination2_Line_1", R"("Output 2")"},
        {"get&paramid=eParamID_XPT_Destination2_Status", R"("0")"},
        {takeThirdToFirst, R"("3")"},
        {askFirst, R"("3")"},
        {"set&paramid=eParamID_XPT_Source1_Line_1&value=A%26B%20%22%C3%A9%2B", R"("A&B \"é+")"},
        {"set&paramid=eParamID_XPT_Source1_Line_1&value=", R"("")"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.query);
        const auto expected = QByteArray(R"("value":)") + c.value + R"(,"value_name":""})";
        EXPECT_TRUE(bodyOf(c.query).endsWith(expected));
    }
    EXPECT_EQ(matrix.source(0, 0), 2);
}

TEST_F(KumoEmulatorTest, SaysWhatItWillNotDoByStatus)
{
    matrix.setLocks({{1, somebodyElse}});
    struct Case {
        const char* query;
        const char* status;
    };
    const Case cases[] = {
        {"set&paramid=eParamID_XPT_Destination2_Status&value=1", "HTTP/1.1 403 Forbidden"},
        {"set&paramid=eParamID_XPT_Destination1_Status&value=5", "HTTP/1.1 400 Bad Request"},
        {"set&paramid=eParamID_XPT_Destination1_Status&value=0", "HTTP/1.1 400 Bad Request"},
        {"set&paramid=eParamID_NumberOfSources&value=9", "HTTP/1.1 400 Bad Request"},
        {"dance&paramid=eParamID_NumberOfSources", "HTTP/1.1 400 Bad Request"},
        {"get&paramid=eParamID_XPT_Source1_Status", "HTTP/1.1 404 Not Found"},
        {"get&paramid=eParamID_XPT_Source5_Line_1", "HTTP/1.1 404 Not Found"},
        {"get&paramid=eParamID_XPT_Source0_Line_1", "HTTP/1.1 404 Not Found"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.query);
        EXPECT_EQ(statusOf(c.query), c.status);
    }
}

TEST_F(KumoEmulatorTest, PassesOverWhatARequestCarries)
{
    RawClient client(kumo);
    client.send("POST / HTTP/1.1\r\nContent-Length: 9\r\n\r\nGET / \r\n\r" + request(askFirst));
    ASSERT_TRUE(pumpUntil([&] { return client.received().endsWith(R"("value":"1","value_name":""})"); }));
    EXPECT_EQ(kumo.receivedMessages().size(), 2);
}

TEST_F(KumoEmulatorTest, ClosesBehindTheAnswerWhenTheClientWantsThat)
{
    for (const auto* head : {" HTTP/1.0\r\n\r\n", " HTTP/1.1\r\nConnection: close\r\n\r\n"}) {
        SCOPED_TRACE(head);
        kumo.faults().pieceSize = 7;
        RawClient client(kumo);
        client.send(QByteArray("GET /config?action=") + askFirst + head);
        EXPECT_TRUE(pumpUntil([&] { return client.isClosed(); }));
        EXPECT_TRUE(client.received().endsWith("}"));
    }
}

TEST_F(KumoEmulatorTest, CountsRequestsThatWaitAtTheSameTime)
{
    kumo.faults().silent = true;
    RawClient one(kumo);
    RawClient other(kumo);
    one.send(request(askFirst));
    other.send(request(askFirst) + request(askFirst));
    ASSERT_TRUE(pumpUntil([&] { return kumo.receivedMessages().size() == 3; }));
    EXPECT_EQ(kumo.mostRequestsAtOnce(), 3);

    kumo.dropClients();
    ASSERT_TRUE(pumpUntil([&] { return kumo.clientCount() == 0; }));
    kumo.faults().silent = false;
    for (int request = 0; request < 4; ++request)
        EXPECT_EQ(statusOf(askFirst), "HTTP/1.1 200 OK");
    EXPECT_EQ(kumo.mostRequestsAtOnce(), 3);
}

} // namespace
