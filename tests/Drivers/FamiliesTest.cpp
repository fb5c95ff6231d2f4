#include "Drivers/Families.h"
#include "Drivers/Contract/DriverError.h"

namespace corvane {

namespace {

using emulator::Side;

const std::string notConnected = DriverError::notConnected().what();
const std::string noLocks = DriverError::unsupported(feature::locking).what();
const std::string noNames = DriverError::unsupported(feature::renaming).what();

/// One family's router and its driver. Whatever a family does alone is in its own tests.
class FamiliesTest : public testing::TestWithParam<const Family*> {
protected:
    void connect()
    {
        EXPECT_EQ(running.run([](RouterDriver& driver) { return driver.connect(); }), "");
        ASSERT_TRUE(running.waitFor("connected "));
        running.settle();
        (void)running.log->takeNew();
    }

    std::string setLabel(const QString& label)
    {
        return running.run([&](RouterDriver& driver) { return driver.setLabel(label, 1, PortKind::source); });
    }

    /// How every kind of command ends.
    std::vector<std::string> commandAll()
    {
        return {running.run([](RouterDriver& driver) { return driver.take(1, 0, 0); }),
            running.run([](RouterDriver& driver) {
                return driver.takeAll({{0, 0, 1}});
            }),
            running.run([](RouterDriver& driver) { return driver.setLock(0, 0, true); }), setLabel(u"A"_s)};
    }

    [[nodiscard]] bool isOf(std::initializer_list<RouterVendor> vendors) const
    {
        return std::ranges::find(vendors, GetParam()->vendor) != vendors.end();
    }

    FamilyHarness running{*GetParam()};
    const bool hasNames = !isOf({RouterVendor::rossUltrix, RouterVendor::evertzQuartz});
    const bool hasLocks = hasNames && !isOf({RouterVendor::ajaKumo});
};

INSTANTIATE_TEST_SUITE_P(, FamiliesTest, testing::ValuesIn([] {
    std::vector<const Family*> families;
    for (const auto& family : allFamilies())
        families.push_back(&family);
    return families;
}()),
    [](const auto& family) { return rawValue(family.param->vendor).toStdString(); });

TEST_P(FamiliesTest, CommandsNeedALinkAndWhatTheRouterCannotDoIsSaid)
{
    const auto& names = hasNames ? notConnected : noNames;
    const auto& locks = hasLocks ? notConnected : noLocks;
    // Whether a Videohub locks is not known before it has said so.
    EXPECT_THAT(commandAll(),
        ElementsAre(
            notConnected, notConnected, isOf({RouterVendor::blackmagicVideohub}) ? noLocks : locks, names));
    connect();
    const auto heard = [this] { return running.router ? running.router->receivedMessages().size() : 0; };
    const auto before = heard();
    if (!hasNames) {
        EXPECT_EQ(setLabel(u"A"_s), noNames);
    }
    if (!hasLocks) {
        EXPECT_EQ(running.run([](RouterDriver& driver) { return driver.setLock(0, 0, true); }), noLocks);
    }
    EXPECT_EQ(heard(), before);
    EXPECT_EQ(running.run([](RouterDriver& driver) { return driver.disconnect(); }), "");
    EXPECT_THAT(commandAll(), ElementsAre(notConnected, notConnected, locks, names));
    EXPECT_EQ(running.run([](RouterDriver& driver) { return driver.disconnect(); }), "");
    running.settle();
    EXPECT_EQ(heard(), before);
}

TEST_P(FamiliesTest, WhatOthersDoIsTold)
{
    if (!running.router)
        return;
    connect();
    running.matrix.setRoutes({{0, 1, 0}});
    EXPECT_TRUE(running.waitFor("route 0:1=0"));
    if (!hasLocks)
        return;
    running.matrix.setLabels({{Side::Destination, 1, u"Stage;2 50% {a}=b"_s}});
    EXPECT_TRUE(running.waitFor("label destination 1 Stage;2 50% {a}=b"));
    running.matrix.setLocks({{0, emulator::somebodyElse}});
    EXPECT_TRUE(running.waitFor("lock 0"));
    EXPECT_THAT(running.log->takeNew(),
        ElementsAre("route 0:1=0", "label destination 1 Stage;2 50% {a}=b", "lock 0"));
}

/// Whatever a name holds, a router is sent one name and nothing else, and nothing of it can be a command.
TEST_P(FamiliesTest, AHostileNameReachesTheRouterAsOneNameWithoutACommandInIt)
{
    const std::pair<QString, QString> namesAndWhatIsKept[] = {
        {u"Cam X\n\nVIDEO OUTPUT ROUTING:\n1 0\n"_s, u"Cam X  VIDEO OUTPUT ROUTING: 1 0 "_s},
        {u"\r\n.SV1,2\r"_s, u"  .SV1,2 "_s},
        {u"A\n\u0010\u0002\u0002\u0010\u0003"_s, u"A      "_s},
        {u"A\u0000\t\u007f\u0085\u2028\u2029B"_s, u"A      B"_s},
        {uR"(\n\\ (a){b}#c%d`e\)"_s, uR"(\n\\ (a){b}#c%d`e\)"_s},
        {u"0001#CALL /MEDIA/XP/VIDEO:switch(I1:O2)"_s, u"0001#CALL /MEDIA/XP/VIDEO:switch(I1:O2)"_s},
        {u"B&action=set?value=2#+%0A/"_s, u"B&action=set?value=2#+%0A/"_s},
        {u"ACK"_s, u"ACK"_s},
        {u""_s, u""_s},
        {u"Köln 🎥"_s, u"Köln 🎥"_s},
    };
    if (!hasNames)
        return;
    connect();
    for (const auto& [name, kept] : namesAndWhatIsKept) {
        SCOPED_TRACE(name.toStdString());
        const auto heardBefore = running.router ? running.router->receivedMessages().size() : 0;
        EXPECT_EQ(setLabel(name), "");
        running.settle();
        EXPECT_EQ(running.log->all().back(), "label source 1 " + kept.toStdString());
        if (!running.router)
            continue;
        EXPECT_EQ(running.router->receivedMessages().size(), heardBefore + 1);
        EXPECT_EQ(running.matrix.label(Side::Source, 1), kept);
    }
    EXPECT_EQ(running.matrix.label(Side::Source, 0), u"Input 1"_s);
    EXPECT_EQ(running.matrix.source(0, 1), 1);
}

/// A router that closes at any moment of its greeting is offline from then on, whatever it had already said.
TEST(LinkEnd, IsTheLastThatIsToldOfARouterThatClosesWhileItIsRead)
{
    const std::string closed = "disconnected The router closed the connection.";
    for (const auto& family : tcpFamilies()) {
        SCOPED_TRACE(family.name);
        bool isWhole = false;
        for (qint64 bytes = 0; !isWhole; bytes += bytes < 32 ? 1 : 97) {
            SCOPED_TRACE(bytes);
            FamilyHarness running(family);
            running.router->faults().closeAfterBytes = bytes;
            running.run([](RouterDriver& driver) { return driver.connect(); });
            running.settle();
            isWhole = !running.log->contains(closed);
            if (isWhole)
                break;
            running.settle();
            const auto said = running.log->takeNew();
            ASSERT_GE(said.size(), 2U);
            EXPECT_EQ(said.at(said.size() - 2), closed);
            EXPECT_EQ(said.back(), "disconnected");
            running.queue.advance(6s);
            running.queue.advance(1h);
            EXPECT_THAT(running.log->takeNew(), IsEmpty());
        }
    }
}

} // namespace

} // namespace corvane
