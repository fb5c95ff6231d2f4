#include "Controllers/PanelPorts.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

QList<SubPanel> named(const QList<QString>& names)
{
    QList<SubPanel> panels;
    for (const auto& name : names)
        panels.append({QUuid::createUuid(), name, {}, {}});
    return panels;
}

TEST(PanelPorts, ANewPanelIsNumberedPastTheNamesInUse)
{
    struct Case {
        QList<QString> inUse;
        QString proposed;
    };
    const Case cases[] = {
        {{}, u"Panel 1"_s},
        {{u"Studio"_s}, u"Panel 2"_s},
        {{u"Panel 1"_s, u"panel 3"_s}, u"Panel 4"_s},
        {{u"PANEL 3"_s, u"Panel 4"_s}, u"Panel 5"_s},
    };
    for (const auto& c : cases)
        EXPECT_EQ(newPanelName(named(c.inUse)), c.proposed);
}

TEST(PanelPorts, PanelsMoveAsOneBlockToBeforeAPosition)
{
    struct Case {
        const char* name;
        QSet<qsizetype> from;
        qsizetype to;
        QString order;
    };
    const Case cases[] = {
        {"down", {0}, 3, u"bcad"_s},
        {"to the end", {0}, 4, u"bcda"_s},
        {"up", {3}, 1, u"adbc"_s},
        {"onto itself", {1}, 1, u"abcd"_s},
        {"to right behind itself", {1}, 2, u"abcd"_s},
        {"two from around the target", {0, 3}, 2, u"badc"_s},
        {"none", {}, 2, u"abcd"_s},
        {"no such position", {-1, 4}, 0, u"abcd"_s},
        {"beyond the end", {1}, 99, u"acdb"_s},
        {"before the start", {1}, -7, u"bacd"_s},
    };
    for (const auto& c : cases) {
        QString order;
        for (const auto& panel : movedAsBlock(named({u"a"_s, u"b"_s, u"c"_s, u"d"_s}), c.from, c.to))
            order += panel.name;
        EXPECT_EQ(order, c.order) << c.name;
    }
}

} // namespace

} // namespace corvane
