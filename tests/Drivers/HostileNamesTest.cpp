#include "Drivers/Contract/DriverError.h"
#include "Drivers/Families.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using emulator::Side;

/// Whatever a name holds, a router is sent one name and nothing else, and nothing of it can be a command.
TEST(HostileNames, ReachTheRouterAsOneNameWithoutACommandInIt)
{
    struct Case {
        QString name;
        QString kept;
    };
    const Case cases[] = {
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
    for (const auto& family : allFamilies()) {
        SCOPED_TRACE(family.name);
        FamilyHarness running(family);
        EXPECT_EQ(running.run([](RouterDriver& driver) { return driver.connect(); }), "");
        ASSERT_TRUE(running.waitFor("connected "));
        running.settle();
        for (const auto& c : cases) {
            SCOPED_TRACE(c.name.toStdString());
            const auto heardBefore = running.router ? running.router->receivedMessages().size() : 0;
            const auto refusal = running.run(
                [&](RouterDriver& driver) { return driver.setLabel(c.name, 1, PortKind::source); });
            running.settle();
            const bool canRename = refusal.empty();
            if (!canRename)
                EXPECT_EQ(refusal, DriverError::unsupported(feature::renaming).what());
            else
                EXPECT_EQ(running.log->all().back(), "label source 1 " + c.kept.toStdString());
            if (!running.router)
                continue;
            EXPECT_EQ(running.router->receivedMessages().size(), heardBefore + (canRename ? 1 : 0));
            EXPECT_EQ(running.matrix.label(Side::Source, 1), canRename ? c.kept : u"Input 2"_s);
        }
        EXPECT_EQ(running.matrix.label(Side::Source, 0), u"Input 1"_s);
        EXPECT_EQ(running.matrix.source(0, 0), 0);
        EXPECT_EQ(running.matrix.source(0, 1), 1);
    }
}

} // namespace

} // namespace corvane
