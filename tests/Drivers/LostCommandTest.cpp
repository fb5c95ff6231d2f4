#include "Drivers/DriverHarness.h"
#include "Drivers/LW3/LightwareDriver.h"
#include "Drivers/Videohub/VideohubDriver.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace corvane {

namespace {

/// A router of two ports a side that does not read, so that the last of many commands find no room, and its
/// driver.
template <typename Driver>
class DeafRouter {
public:
    explicit DeafRouter(const QByteArray& greeting)
    {
        EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
        RouterConnection connection;
        connection.host = u"127.0.0.1"_s;
        connection.port = server.serverPort();
        running.emplace(queue, connection);
        EXPECT_FALSE(outcome(running->driver->connect()));
        EXPECT_TRUE(running->pump([this] { return server.hasPendingConnections(); }));
        peer.reset(server.nextPendingConnection());
        peer->setReadBufferSize(1);
        peer->write(greeting);
        running->settle();
        running->advance(600ms);
        EXPECT_THAT(running->log.all().back(), testing::StartsWith("connected "));
        loseCommands();
    }

    /// What is reported of these words.
    std::vector<std::string> say(const QByteArray& words)
    {
        (void)running->log.takeNew();
        peer->write(words);
        running->settle();
        return running->log.takeNew();
    }

    /// All that has been sent.
    QByteArray listen()
    {
        peer->setReadBufferSize(0);
        running->settle();
        return peer->readAll();
    }

    ManualQueue queue;
    QTcpServer server;
    std::unique_ptr<QTcpSocket> peer;
    std::optional<DriverHarness<Driver>> running;

private:
    void loseCommands()
    {
        // Three bytes each on the line.
        const QString longName(qsizetype{1} << 20, u'€');
        for (int i = 0; i < 14; ++i)
            EXPECT_FALSE(outcome(running->driver->setLabel(longName, 0, PortKind::source)));
        EXPECT_TRUE(running->pumpUntilSays(
            "refused Couldn't send the command: The other side does not read what it is sent"));
        running->settle();
    }
};

TEST(LostCommand, MakesAVideohubsMatrixBeReadAgain)
{
    DeafRouter<VideohubDriver> router("VIDEOHUB DEVICE:\nVideo inputs: 2\nVideo outputs: 2\n\n"
                                      "VIDEO OUTPUT ROUTING:\n0 0\n1 1\n\nEND PRELUDE:\n\n");
    // The question found no room either; it counts as asked, and the next is not due before two seconds.
    const std::string question = "VIDEO OUTPUT ROUTING:\n\n";
    (void)router.listen();
    EXPECT_THAT(router.say("NAK\n\n"), ElementsAre("refused The router refused the last command."));
    EXPECT_THAT(router.listen().toStdString(), testing::Not(testing::HasSubstr(question)));
    router.running->advance(2s);
    (void)router.say("NAK\n\n");
    EXPECT_EQ(router.listen().toStdString(), question);
}

TEST(LostCommand, MakesAnLW3MatrixBeToldWhole)
{
    const QByteArray routes = "pr /MEDIA/XP/VIDEO.DestinationConnectionStatus=I1;I2\r\n";
    DeafRouter<LightwareDriver> router(
        "pw /MEDIA/NAMES/VIDEO.I2=1;B\r\npw /MEDIA/NAMES/VIDEO.O2=1;D\r\n" + routes);
    // The question found no room either, but whatever comes is no longer taken for known.
    EXPECT_THAT(router.say(routes), ElementsAre("route 0:0=0", "route 0:1=1"));
}

} // namespace

} // namespace corvane
