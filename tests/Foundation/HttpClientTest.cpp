#include "Foundation/HttpClient.h"

#include "Foundation/Task.h"
#include "support/LoopbackHttpServer.h"
#include "support/Pump.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr qint64 bodyLimit = 1000;

/// A client, a server on loopback, and how the client's requests ended.
class HttpClientTest : public testing::Test {
protected:
    void start(quint16 port)
    {
        startTask(queue, [this, port]() -> QCoro::Task<> {
            try {
                replies.push_back(co_await client.get(QUrl(u"http://127.0.0.1:%1/a?b=c"_s.arg(port))));
            } catch (const HttpError& error) {
                failures.emplace_back(error.what());
            }
        });
    }

    [[nodiscard]] std::size_t endedCount() const { return replies.size() + failures.size(); }

    void pumpUntilEnded(std::size_t count)
    {
        ASSERT_TRUE(pumpUntil([this, count] { return endedCount() == count; }, {&queue}));
    }

    void get()
    {
        start(server.port());
        pumpUntilEnded(endedCount() + 1);
    }

    void get(const QByteArray& answer)
    {
        server.answer = [answer](const auto&) { return answer; };
        get();
    }

    ManualQueue queue;
    LoopbackHttpServer server;
    HttpClient client{queue, {.time = 8s, .bodySize = bodyLimit}};
    std::vector<HttpReply> replies;
    std::vector<std::string> failures;
};

TEST_F(HttpClientTest, TakesAnyStatusForAnAnswer)
{
    const auto elsewhere =
        "Location: http://127.0.0.1:" + QByteArray::number(server.port()) + "/elsewhere\r\n";
    for (const QByteArray status :
        {"200 OK", "204 No Content", "302 Found", "400 Bad Request", "401 Unauthorized", "403 Forbidden",
            "404 Not Found", "500 Internal Server Error", "799 Never Heard Of"}) {
        SCOPED_TRACE(status.toStdString());
        get(LoopbackHttpServer::reply(status, {}, elsewhere));
        ASSERT_FALSE(replies.empty());
        EXPECT_EQ(replies.back().status, status.left(3).toInt());
        EXPECT_THAT(server.requests.back().toStdString(), testing::StartsWith("GET /a?b=c HTTP/1.1\r\n"));
    }
}

TEST_F(HttpClientTest, FailsWithAReasonWhenTheAnswerIsNotWhole)
{
    server.hangsUp = true;
    for (const QByteArray answer : {"", "HTTP/1.1 200 OK\r\nContent-Len", "ERROR: no such command\r\n\r\n",
             "HTTP/1.1 200 OK\r\nContent-Length: 20\r\n\r\n{\"value\":"}) {
        SCOPED_TRACE(answer.toStdString());
        failures.clear();
        get(answer);
        EXPECT_THAT(failures, ElementsAre(Not("")));
    }
}

TEST_F(HttpClientTest, GivesUpOnAnAnswerThatIsNotWholeInTime)
{
    for (const QByteArray begin : {"", "HTTP/1.1 200 OK\r\nContent-Length: 20\r\n\r\n{"}) {
        SCOPED_TRACE(begin.toStdString());
        server.answer = [&](const auto&) { return begin; };
        server.requests.clear();
        failures.clear();
        start(server.port());
        ASSERT_TRUE(pumpUntil([this] { return !server.requests.empty(); }, {&queue}));
        queue.advance(8s - 1ms);
        pumpUntilIdle({&queue});
        EXPECT_EQ(endedCount(), 0);
        queue.advance(1ms);
        pumpUntilEnded(1);
        EXPECT_THAT(failures, ElementsAre("Timed out after 8 seconds"));
    }
}

TEST_F(HttpClientTest, TakesBodiesUpToTheLimitAndNoFurther)
{
    const QByteArray longest(bodyLimit, 'x');
    get(LoopbackHttpServer::reply("200 OK", longest));
    get(LoopbackHttpServer::reply("200 OK", longest + 'x'));
    get("HTTP/1.0 200 OK\r\n\r\n" + QByteArray(5'000'000, 'x'));
    ASSERT_EQ(replies.size(), 1);
    EXPECT_EQ(replies.front().body, longest);
    EXPECT_THAT(
        failures, ElementsAre("The reply is longer than 1000 bytes", "The reply is longer than 1000 bytes"));
}

TEST_F(HttpClientTest, RemembersNothingFromOneRequestToTheNext)
{
    const QByteArray headers = "Set-Cookie: who=me; Path=/\r\nCache-Control: max-age=3600\r\nETag: \"1\"\r\n";
    get(LoopbackHttpServer::reply("200 OK", "new", headers));
    get();
    ASSERT_EQ(server.requests.size(), 2);
    EXPECT_THAT(server.requests.back().toLower().toStdString(),
        Not(AnyOf(HasSubstr("cookie"), HasSubstr("if-none-match"))));
}

TEST_F(HttpClientTest, FinishesWhatIsUnderWayWhenInvalidatedAndAsksNothingMore)
{
    server.answer = [this](const auto&) {
        client.invalidate();
        return LoopbackHttpServer::reply("200 OK", "last");
    };
    get();
    get();
    pumpUntilIdle({&queue});
    ASSERT_EQ(replies.size(), 1);
    EXPECT_EQ(replies.front().body, "last");
    EXPECT_EQ(failures.size(), 1);
    EXPECT_EQ(server.requests.size(), 1);
}

} // namespace

} // namespace corvane
