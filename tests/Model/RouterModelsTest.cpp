#include "Model/RouterModels.h"
#include "Model/Naming.h"

#include <gtest/gtest.h>

#include <QDateTime>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

TEST(RouterModels, VendorsHaveTheirNamesSymbolsAndPortsInPickerOrder)
{
    struct Case {
        QString rawValue;
        QString name;
        QString symbol;
        qint64 port;
    };
    const Case cases[] = {
        {u"simulator"_s, u"Simulator"_s, u"waveform.path"_s, 0},
        {u"blackmagicVideohub"_s, u"Blackmagic Videohub"_s, u"rectangle.connected.to.line.below"_s, 9990},
        {u"rossUltrix"_s, u"Ross Ultrix"_s, u"square.grid.3x3.fill"_s, 2000},
        {u"ajaKumo"_s, u"AJA KUMO"_s, u"network"_s, 80},
        {u"genericSWP08"_s, u"Generic SW-P-08"_s, u"point.3.connected.trianglepath.dotted"_s, 2000},
        {u"lightware"_s, u"Lightware MX2"_s, u"square.grid.4x3.fill"_s, 6107},
        {u"evertzQuartz"_s, u"Evertz (Quartz)"_s, u"rectangle.split.3x3"_s, 23},
    };
    ASSERT_EQ(allRouterVendors.size(), std::size(cases));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto vendor = allRouterVendors[i];
        EXPECT_EQ(rawValue(vendor), cases[i].rawValue);
        EXPECT_EQ(routerVendorFromRawValue(cases[i].rawValue), vendor);
        EXPECT_EQ(displayName(vendor), cases[i].name);
        EXPECT_EQ(symbolName(vendor), cases[i].symbol);
        EXPECT_EQ(defaultPort(vendor), cases[i].port);
    }
}

TEST(RouterModels, OneLineTellsWhereARouterIsFound)
{
    RouterConnection router;
    EXPECT_EQ(router.endpointDescription(), u":9990"_s);
    router.bonjourName = u"Hub"_s;
    EXPECT_EQ(router.endpointDescription(), u"Hub · Bonjour"_s);
    router.host = u"10.0.0.9"_s;
    EXPECT_EQ(router.endpointDescription(), u"10.0.0.9:9990"_s);
    router.vendor = RouterVendor::simulator;
    EXPECT_EQ(router.endpointDescription(), u"In-memory demo router"_s);
}

TEST(RouterModels, TheSamplesAreADemoAndTwoAddresses)
{
    QStringList samples;
    for (const auto& router : sampleRouters())
        samples.append(router.name + u" · "_s + router.endpointDescription());
    EXPECT_EQ(samples,
        (QStringList{u"Demo Router · In-memory demo router"_s, u"Studio Videohub · 192.168.1.50:9990"_s,
            u"Ultrix Main · 192.168.1.60:2000"_s}));
    EXPECT_EQ(sampleRouters().last().vendor, RouterVendor::rossUltrix);
    EXPECT_NE(sampleRouters().last().id, sampleRouters().last().id);
}

TEST(RouterModels, AStateTellsWhatFeedsADestinationIfThatIsKnown)
{
    RouterState state;
    state.routing[1].insert(4, 7);
    EXPECT_EQ(state.source(4, 1), 7);
    EXPECT_EQ(state.source(5, 1), std::nullopt);
    EXPECT_EQ(state.source(4, 0), std::nullopt);
}

TEST(RouterModels, PortsAreKeyedByKindAndIndex)
{
    EXPECT_EQ((Port{3, PortKind::source, {}}).id(), u"source-3"_s);
    EXPECT_EQ((PortRef{PortKind::destination, 4}).id(), u"destination-4"_s);
    EXPECT_EQ(
        (QSet<PortRef>{{PortKind::source, 3}, {PortKind::destination, 3}, {PortKind::source, 3}}).size(), 2);
}

TEST(RouterModels, TimeIsCountedFromTheStartOf2001)
{
    constexpr qint64 startOf2001 = 978'307'200'000;
    const auto before = QDateTime::currentMSecsSinceEpoch();
    const auto now = startOf2001 + qRound64(Timestamp::now().seconds * 1000);
    EXPECT_GE(now, before);
    EXPECT_LE(now, QDateTime::currentMSecsSinceEpoch());
}

TEST(Naming, AnEnteredNameIsOneTrimmedLineOfAtMost1024Characters)
{
    const QString longest(1024, u'x');
    struct Case {
        QString name;
        QString entered;
    };
    const Case cases[] = {
        {u"  Cam  1\t"_s, u"Cam  1"_s},
        {u"Cam X\r\nVIDEO OUTPUT ROUTING:\v3 9\f"_s, u"Cam X  VIDEO OUTPUT ROUTING: 3 9"_s},
        {u"a\u2028b\u2029c\u0085d\u007fe"_s + QChar(0) + u'f', u"a b c d e f"_s},
        {u" \n\u00a0"_s, u""_s},
        {longest, longest},
        {longest + u'y', longest},
        {u"\n"_s + longest, longest},
        {longest.chopped(1) + u"\ny"_s, longest.chopped(1)},
        {longest.chopped(1) + u"\U0001F3A5"_s, longest.chopped(1)},
        {longest.chopped(2) + u"\U0001F3A5"_s, longest.chopped(2) + u"\U0001F3A5"_s},
    };
    for (const auto& c : cases)
        EXPECT_EQ(naming::entered(c.name), c.entered);
    EXPECT_EQ(naming::kept(u" a\nb "_s), u" a\nb "_s);
}

} // namespace

} // namespace corvane
